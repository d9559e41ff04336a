#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace pello {

/// Orders texts for a reader: by the rules of a locale, ignoring case.
///
/// One object may be shared by several threads.
class Collation {
public:
    /// The rules of `locale` (an ICU or POSIX name such as "de_DE"); without one, of the user's
    /// locale as the environment names it. A locale without rules of its own gets the root rules.
    explicit Collation(std::string_view locale = {});
    ~Collation();
    Collation(const Collation&) = delete;
    Collation& operator=(const Collation&) = delete;

    /// Negative, zero or positive: how `left` stands to `right`.
    [[nodiscard]] int compare(std::string_view left, std::string_view right) const;

    /// A byte string whose plain comparison orders as `compare` does: for sorting many texts.
    [[nodiscard]] std::string sortKey(std::string_view utf8) const;

    /// The rules as the implementation has them.
    struct Rules;

private:
    std::unique_ptr<Rules> rules_;
};

/// The collation of the user's locale, made once.
[[nodiscard]] const Collation& userCollation();

} // namespace pello
