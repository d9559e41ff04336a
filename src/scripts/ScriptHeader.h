#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// How much of a script's beginning is looked at, in bytes.
inline constexpr std::size_t kScriptHeaderBytes = 4096;

/// The first bytes of a script as the text that they are: without a byte-order mark, and without
/// the beginning of a character that the limit cut through. Empty when they are not UTF-8.
[[nodiscard]] std::string_view scriptHeader(std::string_view firstBytes);

/// What the comment lines "# pello.key: value" at the top of a script say. A plain value.
class ScriptHeaderValues {
public:
    /// Reads `header` up to its first line that is neither empty nor a comment. Of lines with the
    /// same key the last counts that has a value; other comments are passed over.
    [[nodiscard]] static ScriptHeaderValues of(std::string_view header);

    /// What stands for `key`, which is in lower case; nothing when no line says.
    [[nodiscard]] std::optional<std::string> value(std::string_view key) const;

    /// Every value by its key.
    [[nodiscard]] const std::map<std::string, std::string, std::less<>>& all() const {
        return values_;
    }

private:
    void readComment(std::string_view comment);

    std::map<std::string, std::string, std::less<>> values_;
};

} // namespace pello
