#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// The general pasteboard, called clipboard elsewhere: what "Copy" fills and "Paste" takes from.
/// Main thread only.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    /// Replaces whatever lies there by plain `text`.
    virtual void setText(std::string_view text) = 0;

    /// The plain text that lies there, empty when there is none. Nothing when there may be some,
    /// but the program that holds it does not hand it over at once, or it is very long.
    [[nodiscard]] virtual std::optional<std::string> text() = 0;

    /// Calls `action` with what `text` would give, but has more patience, with long texts too. Does
    /// not wait: `action` is called now or in a later turn of the loop, within some seconds.
    virtual void read(const std::function<void(std::optional<std::string>)>& action) {
        action(text());
    }

    /// Whether `text` still lies there as `setText` put it: nobody has copied anything since.
    [[nodiscard]] virtual bool holdsOwn(std::string_view text) = 0;
};

} // namespace pello
