#pragma once

#include "ui/terminal/TerminalKey.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// Tells from the bytes that a terminal sends which keys were pressed.
///
/// Understands the sequences of the terminals that descend from the VT100, in both modes of their
/// cursor keys, with xterm's modifiers and bracketed paste. Sequences that mean nothing here give
/// no key.
class TerminalKeyDecoder {
public:
    /// The keys that are complete with `bytes`.
    std::vector<TerminalKey> decode(std::string_view bytes);

    /// Whether what came last may be the start of something: an escape character is a key of its
    /// own, or the start of a sequence.
    [[nodiscard]] bool isWaiting() const { return !pending_.empty() && !isPasting_; }

    /// What the bytes that are waited for mean if nothing follows them.
    std::vector<TerminalKey> giveUp();

private:
    /// What the first of some bytes mean.
    struct Parsed {
        /// 0 when more bytes are needed.
        std::size_t length = 0;
        std::optional<TerminalKey> key;
    };

    [[nodiscard]] static Parsed parse(std::string_view bytes);
    [[nodiscard]] static Parsed parseText(std::string_view bytes);
    [[nodiscard]] static Parsed parseEscape(std::string_view bytes);
    [[nodiscard]] static Parsed parseWithAlt(std::string_view bytes);
    [[nodiscard]] static Parsed parseSequence(std::string_view bytes);

    bool takePaste(std::vector<TerminalKey>& keys);

    std::string pending_;
    bool isPasting_ = false;
};

} // namespace pello
