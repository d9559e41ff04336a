#include "ui/terminal/TerminalKeyDecoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace pello {
namespace {

/// "alt+up text:abc", keys in order.
std::string spelt(const std::vector<TerminalKey>& keys) {
    static constexpr std::array kNames = {"text",   "enter", "tab",    "escape",  "backspace",
                                          "delete", "up",    "down",   "left",    "right",
                                          "home",   "end",   "pageUp", "pageDown"};
    static constexpr std::array kHeld = {"", "shift+", "alt+", "control+"};
    std::string all;
    for (const TerminalKey& key : keys) {
        all += all.empty() ? "" : " ";
        all += kHeld.at(static_cast<std::size_t>(key.with));
        all += kNames.at(static_cast<std::size_t>(key.name));
        all += key.text.empty() ? "" : ":" + key.text;
    }
    return all;
}

std::string decoded(std::string_view bytes) {
    TerminalKeyDecoder decoder;
    const auto keys = decoder.decode(bytes);
    return spelt(keys) + (decoder.isWaiting() ? "…" : "");
}

TEST(TerminalKeyDecoderTest, KeysAreToldByTheSequencesOfEitherCursorMode) {
    EXPECT_EQ(decoded("\033[A\033OA\033[B\033[C\033[D"), "up up down right left");
    EXPECT_EQ(decoded("\033[H\033[F\033[1~\033[4~\033[7~\033OF"), "home end home end home end");
    EXPECT_EQ(decoded("\033[5~\033[6~\033[3~"), "pageUp pageDown delete");
    EXPECT_EQ(decoded("\r\t\177\b\033[Z"), "enter tab backspace backspace shift+tab");
    EXPECT_EQ(decoded("\x03\x10\x17"), "control+text:c control+text:p control+text:w");
}

TEST(TerminalKeyDecoderTest, WhatIsHeldIsToldInXtermsWayOrByAnEscapeInFront) {
    EXPECT_EQ(decoded("\033[1;3A\033[1;5C\033[3;2~"), "alt+up control+right shift+delete");
    EXPECT_EQ(decoded("\033\033[A\033\r\033b\0333"), "alt+up alt+enter alt+text:b alt+text:3");
    EXPECT_EQ(decoded("\033äx"), "alt+text:ä text:x");
    EXPECT_EQ(decoded("\033[13;2u\033[27;2;13~\033[49;5u"),
              "shift+enter shift+enter control+text:1");
}

TEST(TerminalKeyDecoderTest, TextComesInOnePieceHoweverItsBytesArrive) {
    EXPECT_EQ(decoded("grün👍🏽\r"), "text:grün👍🏽 enter");
    const std::string_view text = "ä👍";
    TerminalKeyDecoder decoder;
    std::string all;
    for (const char byte : text) {
        for (const TerminalKey& key : decoder.decode({&byte, 1})) {
            all += key.text;
        }
    }
    EXPECT_EQ(all, text);
    EXPECT_FALSE(decoder.isWaiting());
    EXPECT_EQ(decoded("a\xFFz"), "text:a\xEF\xBF\xBDz");
}

TEST(TerminalKeyDecoderTest, AnEscapeWaitsForWhatItMayBegin) {
    TerminalKeyDecoder decoder;
    EXPECT_EQ(spelt(decoder.decode("\033")), "");
    EXPECT_TRUE(decoder.isWaiting());
    EXPECT_EQ(spelt(decoder.decode("[")), "");
    EXPECT_EQ(spelt(decoder.decode("A")), "up");
    EXPECT_FALSE(decoder.isWaiting());

    EXPECT_EQ(spelt(decoder.decode("\033")), "");
    EXPECT_EQ(spelt(decoder.giveUp()), "escape");
    EXPECT_EQ(spelt(decoder.decode("\033\033")), "");
    EXPECT_EQ(spelt(decoder.giveUp()), "escape escape");
    EXPECT_EQ(spelt(decoder.decode("\xC3")), "");
    EXPECT_EQ(spelt(decoder.giveUp()), "");
    EXPECT_FALSE(decoder.isWaiting());
}

TEST(TerminalKeyDecoderTest, WhatIsPastedRunsNothing) {
    EXPECT_EQ(decoded("\033[200~one\rtwo\033x\033[201~\r"), "text:one two x enter");
    TerminalKeyDecoder decoder;
    EXPECT_EQ(spelt(decoder.decode("\033[200~sa")), "");
    EXPECT_FALSE(decoder.isWaiting());
    EXPECT_EQ(spelt(decoder.decode("f\033[20")), "");
    EXPECT_EQ(spelt(decoder.decode("1~")), "text:saf");
}

TEST(TerminalKeyDecoderTest, UnknownSequencesGiveNoKey) {
    EXPECT_EQ(decoded("\033[[A\033[15~\033[?1;2c\033[999;999z\033[;;A\033OPx"), "up delete text:x");
    EXPECT_EQ(decoded("\033[" + std::string(100, '1')), "");
}

} // namespace
} // namespace pello
