#include "ui/terminal/TerminalFrontEnd.h"

#include "support/MemoryLauncher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class TerminalFrontEndTest : public testing::Test {
protected:
    TerminalFrontEndTest() { launcher.install({"Safari", "Safe Mode", "Terminal"}); }

    /// What a user who types these lines sees.
    std::string converse(const std::string& lines) {
        std::istringstream input(lines);
        std::ostringstream output;
        TerminalFrontEnd(
            launcher.controller, [this] { launcher.loop.settle(); }, input, output)
            .run();
        return output.str();
    }

    MemoryLauncher launcher;
};

TEST_F(TerminalFrontEndTest, AnEmptyLineRunsTheFirstRow) {
    EXPECT_THAT(converse("saf\n\n"), HasSubstr(" 1  Safari"));
    EXPECT_THAT(launcher.opened(), ElementsAre("Safari"));
}

TEST_F(TerminalFrontEndTest, ANumberRunsThatRowAndAnyOtherTextSearches) {
    EXPECT_THAT(converse("saf\n2\n"), HasSubstr("Running Safe Mode"));
    EXPECT_THAT(launcher.opened(), ElementsAre("Safe Mode"));
    EXPECT_THAT(converse("saf\n3\n"), HasSubstr("Nothing matches."));
}

TEST_F(TerminalFrontEndTest, NothingFoundRunsNothing) {
    EXPECT_THAT(converse("xyz\n\n"), HasSubstr("Nothing matches."));
    EXPECT_THAT(launcher.opened(), IsEmpty());
}

TEST_F(TerminalFrontEndTest, NoticesAreShownOnce) {
    launcher.controller.report("The disk is full.");
    const std::string seen = converse("saf\nsafe\n");
    EXPECT_THAT(seen, HasSubstr("! The disk is full."));
    EXPECT_EQ(seen.find("disk"), seen.rfind("disk"));
}

} // namespace
} // namespace pello
