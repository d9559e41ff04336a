#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// The version of a release: numbers between dots, and behind them what makes it a preliminary one.
///
/// "1.10" comes after "1.9", "2.0-beta.2" before "2.0", "1.0" is "1.0.0". What follows a "+" names
/// a build and does not count.
class ReleaseVersion {
public:
    /// Nothing when `text` does not begin with a number ("v1.0" does) or goes on with what is part
    /// of no version.
    [[nodiscard]] static std::optional<ReleaseVersion> from(std::string_view text);

    /// As it was written, without white space around it.
    [[nodiscard]] const std::string& text() const { return text_; }

    friend std::strong_ordering operator<=>(const ReleaseVersion& left,
                                            const ReleaseVersion& right);
    friend bool operator==(const ReleaseVersion& left, const ReleaseVersion& right) {
        return (left <=> right) == 0;
    }

private:
    ReleaseVersion() = default;

    std::string text_;
    /// Without leading zeros, so that the longer one is the larger one.
    std::vector<std::string> numbers_;
    /// Words and numbers; empty for a final release.
    std::vector<std::string> preliminary_;
};

} // namespace pello
