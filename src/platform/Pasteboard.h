#pragma once

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

    /// The plain text that lies there; empty when there is none, or when the program that holds it
    /// does not hand it over at once.
    [[nodiscard]] virtual std::string text() = 0;

    /// Whether `text` still lies there as `setText` put it: nobody has copied anything since.
    [[nodiscard]] virtual bool holdsOwn(std::string_view text) = 0;
};

} // namespace pello
