#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// A query as one looks for keywords at its beginning: the keyword alone, or the keyword, a space
/// and an argument.
///
/// Reads the query once, so that many keywords can be tried. Case and the form of accents do not
/// count.
class KeywordQuery {
public:
    /// `query` as typed; must outlive this object.
    explicit KeywordQuery(std::string_view query);

    [[nodiscard]] bool isBlank() const { return query_.empty(); }

    /// The text after `keyword` without outer blanks, a piece of the query; empty when the keyword
    /// is all of it. Nothing when the query does not begin with the keyword, or that is empty.
    [[nodiscard]] std::optional<std::string_view> argument(std::string_view keyword) const;

private:
    std::string_view query_;
    std::string folded_;
};

} // namespace pello
