#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// How the running launcher listens to the keyboard, for whoever asks from another process. A plain
/// value.
struct KeyboardReport {
    /// A combination that is taken from other programs, or should be.
    struct Grab {
        std::string combo;
        bool isHeld = false;
        /// Why it is not, when it is not.
        std::string reason;
        friend bool operator==(const Grab&, const Grab&) = default;
    };
    struct Hyper {
        bool isWanted = false;
        bool isInPlace = false;
        /// It is this program's, to be undone when it quits.
        bool isOwn = false;
        friend bool operator==(const Hyper&, const Hyper&) = default;
    };

    /// The listener's health by its name, such as "listening".
    std::string health;
    std::string lastFailure;
    bool isAccessibilityTrusted = false;
    bool hasInputMonitoring = false;
    /// What opens the panel, as the user presses it.
    std::string activation;
    std::vector<Grab> grabs;
    /// Nobody may have claimed them since without having been noticed.
    bool areGrabsSettled = true;
    Hyper hyper;

    [[nodiscard]] bool isListening() const { return health == "listening"; }

    /// As one line of JSON, and back; nothing when it is not one.
    [[nodiscard]] std::string line() const;
    [[nodiscard]] static std::optional<KeyboardReport> fromLine(std::string_view line);

    friend bool operator==(const KeyboardReport&, const KeyboardReport&) = default;
};

} // namespace pello
