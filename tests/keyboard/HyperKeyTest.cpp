#include "keyboard/hotkeys/HyperKey.h"

#include "keyboard/hotkeys/Permissions.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryShell.h"
#include "platform/memory/MemoryWorkspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

namespace pello {
namespace {

using HyperKey::Mapping;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

constexpr std::int64_t kCapsLock = 0x700000039;
constexpr std::int64_t kEscape = 0x700000029;
constexpr std::int64_t kRightOption = 0x7000000E6;
constexpr std::int64_t kF18 = 0x70000006D;

TEST(HyperKeyTextTest, ReadsEntriesWhateverTheOrderAndNotationOfTheirNumbers) {
    EXPECT_THAT(HyperKey::parse("(\n"
                                "        {\n"
                                "        HIDKeyboardModifierMappingDst = 30064771181;\n"
                                "        HIDKeyboardModifierMappingSrc = 30064771129;\n"
                                "    },\n"
                                "        {\n"
                                "        \"HIDKeyboardModifierMappingSrc\" = \"0x7000000E6\" ;\r\n"
                                "\n"
                                "        HIDKeyboardModifierMappingDst =\t0X70000006d\n"
                                "    }\n"
                                ")"),
                ElementsAre(Mapping{kCapsLock, kF18}, Mapping{kRightOption, kF18}));
}

TEST(HyperKeyTextTest, TakesOnlyWholeNumbersAndWholeEntries) {
    const auto parsed = [](const std::string& source, const std::string& destination) {
        return HyperKey::parse("HIDKeyboardModifierMappingSrc" + source +
                               "\nHIDKeyboardModifierMappingDst" + destination);
    };
    EXPECT_THAT(parsed(" = 1", " = 2"), ElementsAre(Mapping{1, 2}));
    for (const char* source :
         {"", " 1", " = ", " = 1x", " = 1 2", " = 0x", " = x1", " = 9223372036854775808"}) {
        EXPECT_THAT(parsed(source, " = 2"), IsEmpty()) << source;
        EXPECT_THAT(parsed(" = 2", source), IsEmpty()) << source;
    }
    EXPECT_THAT(HyperKey::parse("(null)"), IsEmpty());
    EXPECT_THAT(parsed(" = 1\nHIDKeyboardModifierMappingSrc = 2",
                       " = 3\nHIDKeyboardModifierMappingDst = 4"),
                ElementsAre(Mapping{2, 3}));
}

TEST(HyperKeyTextTest, KeepsTheFirstEntryOfEachKey) {
    EXPECT_THAT(HyperKey::deduplicated({{1, 2}, {3, 4}, {1, 5}, {3, 4}, {2, 2}}),
                ElementsAre(Mapping{1, 2}, Mapping{3, 4}, Mapping{2, 2}));
}

TEST(HyperKeyTextTest, WritesEntriesAsTheToolTakesThem) {
    EXPECT_EQ(HyperKey::payload({}), R"({"UserKeyMapping":[]})");
    EXPECT_EQ(HyperKey::payload({HyperKey::kCapsLockToF18, {1, -2}}),
              R"({"UserKeyMapping":[{"HIDKeyboardModifierMappingSrc":30064771129,)"
              R"("HIDKeyboardModifierMappingDst":30064771181},)"
              R"({"HIDKeyboardModifierMappingSrc":1,"HIDKeyboardModifierMappingDst":-2}]})");
}

/// A system whose tool holds remaps.
class HyperKeyTest : public testing::Test {
protected:
    HyperKeyTest() {
        shell.tools["/usr/bin/hidutil"] = [this](const std::vector<std::string>& words) {
            return answer(words);
        };
    }

    Shell::Result answer(const std::vector<std::string>& words) {
        EXPECT_EQ(words.at(0), "property");
        if (words.at(1) == "--get") {
            EXPECT_EQ(words.at(2), "UserKeyMapping");
            return {.output = listing()};
        }
        EXPECT_EQ(words.at(1), "--set");
        written = words.at(2);
        return {.status = 1}; // nobody asks
    }
    [[nodiscard]] std::string listing() const {
        std::string text = "(\n";
        for (const auto& [source, destination] : mappings) {
            text += "{\nHIDKeyboardModifierMappingDst = " + std::to_string(destination) +
                    ";\nHIDKeyboardModifierMappingSrc = " + std::to_string(source) + ";\n}\n";
        }
        return text + ")\n";
    }
    std::optional<bool> enable() {
        std::optional<bool> didInstall;
        HyperKey::enable(shell, [&didInstall](bool answer) { didInstall = answer; });
        loop.settle();
        return didInstall;
    }
    std::optional<bool> isActive() {
        std::optional<bool> active;
        HyperKey::isActive(shell, [&active](bool answer) { active = answer; });
        loop.settle();
        return active;
    }

    std::vector<Mapping> mappings;
    std::optional<std::string> written;
    MemoryMainLoop loop;
    MemoryShell shell{loop};
};

TEST_F(HyperKeyTest, InstallsItselfBesideTheRemapsOfOthers) {
    mappings = {{kCapsLock, kEscape}, {kRightOption, kEscape}, {kCapsLock, kF18}};
    EXPECT_THAT(isActive(), Optional(false)) << "the first entry of a key counts";
    EXPECT_THAT(enable(), Optional(true));
    EXPECT_THAT(written, Optional(HyperKey::payload({{kRightOption, kEscape}, {kCapsLock, kF18}})));

    mappings = {};
    EXPECT_THAT(enable(), Optional(true));
    EXPECT_THAT(written, Optional(HyperKey::payload({{kCapsLock, kF18}})));
}

TEST_F(HyperKeyTest, LeavesTheSameRemapOfAnotherToolAlone) {
    mappings = {{kRightOption, kEscape}, {kCapsLock, kF18}};
    EXPECT_THAT(isActive(), Optional(true));
    EXPECT_THAT(enable(), Optional(false));
    EXPECT_EQ(written, std::nullopt);
}

TEST_F(HyperKeyTest, RemovesEveryRemapOfCapsLockAndNoOther) {
    mappings = {{kRightOption, kF18}, {kCapsLock, kEscape}};
    bool isDone = false;
    HyperKey::remove(shell, [&isDone] { isDone = true; });
    loop.settle();
    EXPECT_TRUE(isDone);
    EXPECT_THAT(written, Optional(HyperKey::payload({{kRightOption, kF18}})));

    mappings = {{kCapsLock, kF18}};
    HyperKey::removeSynchronously(shell);
    EXPECT_THAT(written, Optional(HyperKey::payload({})));
}

TEST_F(HyperKeyTest, TakesAToolThatIsNotThereForNoRemaps) {
    shell.tools.clear();
    EXPECT_THAT(isActive(), Optional(false));
    EXPECT_THAT(enable(), Optional(true));
    EXPECT_EQ(shell.commands.back(),
              "/usr/bin/hidutil property --set " + HyperKey::payload({HyperKey::kCapsLockToF18}));
}

TEST(PermissionsTest, OpensThePaneOfEachPermission) {
    MemoryWorkspace workspace;
    Permissions::openSettings(workspace, Permissions::SettingsPane::accessibility);
    Permissions::openSettings(workspace, Permissions::SettingsPane::inputMonitoring);
    const std::string pane = "x-apple.systempreferences:com.apple.preference.security?";
    EXPECT_THAT(workspace.openedAddresses,
                ElementsAre(pane + "Privacy_Accessibility", pane + "Privacy_ListenEvent"));
}

} // namespace
} // namespace pello
