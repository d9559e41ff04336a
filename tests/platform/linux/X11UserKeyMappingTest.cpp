#include "platform/linux/X11UserKeyMapping.h"

#include "support/PrivateDisplay.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace pello {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kCapsToF18 =
    R"({"HIDKeyboardModifierMappingSrc":30064771129,"HIDKeyboardModifierMappingDst":30064771181})";
constexpr const char* kCapsToEscape =
    R"({"HIDKeyboardModifierMappingSrc":30064771129,"HIDKeyboardModifierMappingDst":30064771113})";
constexpr const char* kListedCapsToF18 = "        HIDKeyboardModifierMappingDst = 30064771181;\n"
                                         "        HIDKeyboardModifierMappingSrc = 30064771129;\n";
constexpr const char* kListedCapsToEscape =
    "        HIDKeyboardModifierMappingDst = 30064771113;\n"
    "        HIDKeyboardModifierMappingSrc = 30064771129;\n";

class X11UserKeyMappingTest : public testing::Test {
protected:
    X11UserKeyMappingTest() { restart(); }

    /// As if the program had been killed and started again.
    void restart() {
        tool_.reset();
        tool_ = std::make_unique<X11UserKeyMapping>(folder_.path() / "runtime");
    }

    std::string get() { return tool_->run({"property", "--get", "UserKeyMapping"}).output; }

    int set(const std::string& entries) {
        return tool_->run({"property", "--set", R"({"UserKeyMapping":[)" + entries + "]}"}).status;
    }

    /// All that the server knows of its keyboard.
    static std::string keymap() {
        return PrivateDisplay::run("xkbcomp $DISPLAY - 2>/dev/null; xmodmap -pm; xmodmap -pke; "
                                   "xset q | sed -n '/auto repeating/,/auto repeat delay/p'");
    }

    PrivateDisplay display_;
    TemporaryFolder folder_;
    std::unique_ptr<X11UserKeyMapping> tool_;
};

TEST_F(X11UserKeyMappingTest, CapsLockBecomesHyperAndComesBackByteForByte) {
    for (const char* layout :
         {"-layout us", "-layout us,de,ru -option grp:alt_shift_toggle",
          "-layout us -option -option caps:escape", "-layout de -option -option ctrl:nocaps",
          "-layout us -option -option caps:swapescape", "-layout us -option -option caps:super",
          "-layout us,ru -option -option grp:caps_toggle",
          "-layout de -option -option lv3:caps_switch"}) {
        PrivateDisplay::run(std::string("setxkbmap ") + layout);
        const std::string before = keymap();
        EXPECT_EQ(get(), "(\n)") << layout;

        EXPECT_EQ(set(kCapsToF18), 0) << layout;
        EXPECT_THAT(get(), HasSubstr(kListedCapsToF18)) << layout;
        EXPECT_THAT(keymap(), HasSubstr("SetMods(modifiers=Shift+Control+Mod1+Mod4)")) << layout;

        EXPECT_EQ(set(""), 0) << layout;
        EXPECT_EQ(get(), "(\n)") << layout;
        EXPECT_EQ(keymap(), before) << layout;
        EXPECT_TRUE(std::filesystem::is_empty(folder_.path() / "runtime"));
    }
}

TEST_F(X11UserKeyMappingTest, TheNextStartUndoesWhatAKilledProgramLeft) {
    const std::string before = keymap();
    ASSERT_EQ(set(kCapsToF18), 0);

    restart();
    EXPECT_THAT(get(), HasSubstr(kListedCapsToF18)) << "until it takes over";
    tool_->takeOver();
    EXPECT_EQ(keymap(), before);
    EXPECT_EQ(set(kCapsToF18), 0);
    EXPECT_EQ(set(""), 0);
    EXPECT_EQ(keymap(), before);

    ASSERT_EQ(set(kCapsToF18), 0);
    PrivateDisplay::run("setxkbmap -option caps:escape");
    const std::string chosenMeanwhile = keymap();
    restart();
    tool_->takeOver();
    EXPECT_EQ(keymap(), chosenMeanwhile);

    restart();
    tool_->takeOver();
    EXPECT_EQ(keymap(), chosenMeanwhile) << "nothing was left behind";
}

TEST_F(X11UserKeyMappingTest, AnotherToolsKeymapEndsItAndItCanBePutAgain) {
    ASSERT_EQ(set(kCapsToF18), 0);
    PrivateDisplay::run("setxkbmap -layout de -option caps:escape");
    const std::string foreign = keymap();
    EXPECT_EQ(get(), "(\n)");
    EXPECT_EQ(set(""), 0);
    EXPECT_EQ(keymap(), foreign);

    EXPECT_EQ(set(kCapsToF18), 0);
    PrivateDisplay::run("setxkbmap -layout us");
    EXPECT_EQ(set(kCapsToF18), 0);
    EXPECT_EQ(set(""), 0);
    EXPECT_THAT(keymap(), HasSubstr("Escape"));
}

TEST_F(X11UserKeyMappingTest, FollowsTheModifiersThatTheKeymapHas) {
    PrivateDisplay::run("xmodmap -e 'clear Mod3' -e 'clear Mod4' -e 'add Mod3 = Super_L Super_R'");
    ASSERT_EQ(set(kCapsToF18), 0);
    EXPECT_THAT(keymap(), HasSubstr("SetMods(modifiers=Shift+Control+Mod1+Mod3)"));
}

TEST_F(X11UserKeyMappingTest, RemembersTheOtherRemapsWithoutEffect) {
    const std::string before = keymap();
    ASSERT_EQ(set(kCapsToEscape), 0);
    EXPECT_THAT(get(), HasSubstr(kListedCapsToEscape));
    EXPECT_EQ(keymap(), before);
    ASSERT_EQ(set(std::string(kCapsToEscape) + "," + kCapsToF18), 0);
    EXPECT_THAT(get(), testing::AllOf(HasSubstr(kListedCapsToEscape), HasSubstr(kListedCapsToF18)));
}

TEST_F(X11UserKeyMappingTest, RefusesWhatItCannotDoAndChangesNothing) {
    const std::string before = keymap();
    for (const char* payload :
         {"", "x", "[]", "{}", R"({"UserKeyMapping":1})", R"({"UserKeyMapping":[1]})",
          R"({"UserKeyMapping":[{"HIDKeyboardModifierMappingSrc":"1"}]})",
          R"({"UserKeyMapping":[],"Other":1})"}) {
        EXPECT_EQ(tool_->run({"property", "--set", payload}).status, 1) << payload;
    }
    EXPECT_EQ(tool_->run({"property", "--get", "Other"}).status, 1);
    EXPECT_EQ(tool_->run({}).status, 1);

    folder_.write("runtime", "a file where the folder should be");
    EXPECT_EQ(set(kCapsToF18), 1);
    EXPECT_EQ(keymap(), before);

    display_.endServer();
    EXPECT_EQ(set(kCapsToF18), 1);
    restart();
    EXPECT_EQ(get(), "(\n)");
}

} // namespace
} // namespace pello
