#include "core/settings/SettingsText.h"

#include "base/Text.h"
#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryUserDefaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class SettingsTextTest : public testing::Test {
protected:
    /// What setting `key` to `text` leads to: the value as text, or the complaint.
    std::string after(std::string_view key, std::string_view setTo) {
        if (const auto problem = text.set(key, setTo)) {
            return problem->sentence;
        }
        return text.get(key)->value;
    }

    MemoryUserDefaults defaults;
    MemoryLoginItem loginItem;
    PelloSettings settings{defaults, loginItem};
    SettingsText text{settings};
};

TEST_F(SettingsTextTest, ListsEverySettingOnceAndEachTextReadsBack) {
    const auto entries = text.list();
    EXPECT_EQ(entries.size(), 28U);
    EXPECT_EQ(entries.front().key, "activation");
    EXPECT_EQ(entries.back().key, "launchAtLogin");
    for (const auto& entry : entries) {
        EXPECT_EQ(after(entry.key, entry.value), entry.value) << entry.key;
    }
}

TEST_F(SettingsTextTest, TakesWhatFits) {
    EXPECT_EQ(after("activation", "capsLock"), "capsLock");
    EXPECT_EQ(after("glyphCombo", "49:262144"), "49:262144");
    EXPECT_EQ(after("glyphCombo", "none"), "none");
    EXPECT_EQ(after("usesGlass", "off"), "false");
    EXPECT_EQ(after("maximumResults", "50"), "50");
    EXPECT_EQ(after("fontSize", "18"), "18.0");
    EXPECT_EQ(after("panelPlacement", "1:0"), "1.0:0.0");
    EXPECT_EQ(after("extraDirectories", R"( ["/a b", "/ü"] )"), R"(["/a b","/ü"])");
    EXPECT_EQ(after("launchAtLogin", "yes"), "true");
    EXPECT_TRUE(loginItem.enabled);
}

TEST_F(SettingsTextTest, SaysWhatASettingTakes) {
    EXPECT_EQ(after("maximumResults", "x"),
              R"("maximumResults" takes a whole number from 1 to 50, not "x")");
    EXPECT_EQ(after("usesGlass", ""), R"("usesGlass" takes true or false, not "")");
    EXPECT_EQ(after("commandTabPosition", "Top"),
              R"("commandTabPosition" takes one of withLauncher, top, center, bottom, not "Top")");
    EXPECT_THAT(after("glyphCombo", "49"), HasSubstr("or none, not \"49\""));
    EXPECT_EQ(after("fontsize", "12"), R"(there is no setting "fontsize")");
    EXPECT_THAT(after("bangs", '[' + std::string(5000, 'a')),
                StartsWith(R"("bangs" takes a JSON)"));
    EXPECT_LT(after("bangs", '[' + std::string(5000, 'a')).size(), 200U);
    EXPECT_THAT(defaults.storedKeys(), IsEmpty());
}

TEST_F(SettingsTextTest, RefusesWhatWouldNotBeUsable) {
    constexpr std::string_view kUnusable =
        R"(maximumResults 0|maximumResults 51|maximumResults 8.0|maximumResults 99999999999999999999|)"
        R"(fontSize 7.9|fontSize nan|fontSize 1e3|switcherIconSize -26|panelPlacement 1.5:0.2|)"
        R"(extraDirectories /a|extraDirectories ["relative"]|extraDirectories [""]|)"
        R"(bangs [{"keyword":"x"}]|urlAliases {}|keyCombo none)";
    for (const std::string_view each : text::split(kUnusable, '|')) {
        const auto key = each.substr(0, each.find(' '));
        const auto value = each.substr(key.size() + 1);
        EXPECT_THAT(after(key, value), HasSubstr(" takes ")) << key << ' ' << value;
    }
    EXPECT_EQ(defaults.writeCount(), 0);
}

TEST_F(SettingsTextTest, ARecordTypedWithoutAnIdGetsOne) {
    after("bangs", R"([{"keyword":"x","name":"X","template":"https://x.example/"}])");
    EXPECT_EQ(settings.bangs().at(0).name, "X");
    EXPECT_NE(settings.bangs().at(0).id, Uuid{});
}

TEST_F(SettingsTextTest, ResetShowsTheDefaultAgain) {
    EXPECT_EQ(after("maximumResults", "9"), "9");
    EXPECT_FALSE(text.reset("maximumResults"));
    EXPECT_EQ(text.get("maximumResults")->value, "8");
    EXPECT_THAT(defaults.storedKeys(), IsEmpty());
    EXPECT_TRUE(text.reset("nothing"));
}

TEST_F(SettingsTextTest, SaysThatTheSystemRefused) {
    loginItem.refuses = true;
    EXPECT_EQ(text.set("launchAtLogin", "true").value().kind, SettingsText::Problem::Kind::refused);
    EXPECT_EQ(text.set("launchAtLogin", "1").value().kind,
              SettingsText::Problem::Kind::notUnderstood);
    EXPECT_EQ(text.get("launchAtLogin")->value, "false");
}

} // namespace
} // namespace pello
