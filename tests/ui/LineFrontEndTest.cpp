#include "ui/terminal/LineFrontEnd.h"

#include "platform/qt/TerminalPasteboard.h"
#include "support/MemoryLauncher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class LineFrontEndTest : public testing::Test {
protected:
    LineFrontEndTest() { launcher.install({"Safari", "Safe Mode", "Terminal"}); }

    /// What a user who types these lines sees.
    std::string converse(const std::string& lines) {
        std::istringstream input(lines);
        std::ostringstream output;
        LineFrontEnd(launcher.controller, [this] { launcher.loop.settle(); }, input, output).run();
        return output.str();
    }

    MemoryLauncher launcher;
};

TEST_F(LineFrontEndTest, AnEmptyLineRunsTheFirstRowANumberThatOneAndTextSearches) {
    EXPECT_THAT(converse("saf\n\n"), HasSubstr(" 1  Safari"));
    EXPECT_THAT(converse("saf\n2\n"), HasSubstr("Running Safe Mode"));
    EXPECT_THAT(converse("saf\n4\n"), HasSubstr("Search for “4”"));
    EXPECT_THAT(launcher.opened(), ElementsAre("Safari", "Safe Mode"));
    EXPECT_THAT(converse("xyz\n\n"), HasSubstr("Running Search for “xyz”"));
    EXPECT_THAT(launcher.workspace.openedAddresses, ElementsAre("https://duckduckgo.com/?q=xyz"));
}

TEST_F(LineFrontEndTest, AnAnswerGoesToTheTerminalsPasteboard) {
    std::ostringstream terminal;
    TerminalPasteboard pasteboard(terminal);
    pasteboard.setText("3.1 mi");
    EXPECT_EQ(terminal.str(), "\033]52;c;My4xIG1p\a");

    launcher.quickActions.prepare({.locale = "en_US"});
    EXPECT_THAT(converse("6*7\n\n"), HasSubstr("Copying 42"));
    EXPECT_EQ(launcher.pasteboard.text(), "42");
}

TEST_F(LineFrontEndTest, NoticesAreShownOnce) {
    launcher.controller.report("The disk is full.");
    const std::string seen = converse("saf\nsafe\n");
    EXPECT_THAT(seen, HasSubstr("! The disk is full."));
    EXPECT_EQ(seen.find("disk"), seen.rfind("disk"));
}

} // namespace
} // namespace pello
