#include "core/settings/PelloSettings.h"

#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryUserDefaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

PropertyValue jsonData(std::string_view text) {
    return PropertyData(text.begin(), text.end());
}

class PelloSettingsTest : public testing::Test {
protected:
    /// The settings as a program that starts now reads them.
    PelloSettings& start() { return settings.emplace(defaults, loginItem); }

    /// Starts with nothing stored but `value` under `key`.
    PelloSettings& startWith(std::string_view key, PropertyValue value) {
        for (const std::string& stored : defaults.storedKeys()) {
            defaults.remove(stored);
        }
        defaults.set(key, std::move(value));
        return start();
    }

    [[nodiscard]] std::optional<PropertyValue> stored(std::string_view key) const {
        return defaults.value(key);
    }

    MemoryUserDefaults defaults;
    MemoryLoginItem loginItem;
    std::optional<PelloSettings> settings;
};

TEST_F(PelloSettingsTest, AFreshUserGetsTheDefaultsAndNothingIsWritten) {
    auto& fresh = start();
    EXPECT_EQ(fresh.activation(), Activation::rightCommand);
    EXPECT_EQ(fresh.keyCombo().storageValue(), "49:524288");
    EXPECT_EQ(fresh.glyphCombo(), std::nullopt);
    EXPECT_EQ(fresh.panelPlacement(), (PanelPlacement{.centerX = 0.5, .top = 0.22}));
    EXPECT_EQ(fresh.searchEngine(), WebSearchEngine::duckDuckGo);
    EXPECT_EQ(fresh.maximumResults(), 8);
    EXPECT_EQ(fresh.fontSize(), 16);
    EXPECT_TRUE(fresh.usesGlass());
    EXPECT_FALSE(fresh.startsCompact());
    EXPECT_TRUE(fresh.includesSettingsPanes() && fresh.includesAudioOutputs() &&
                fresh.includesRunningApps() && fresh.includesMenuItems());
    EXPECT_THAT(fresh.bangs(), SizeIs(6));
    EXPECT_THAT(defaults.storedKeys(), IsEmpty());
    EXPECT_EQ(defaults.writeCount(), 0);
    EXPECT_EQ(defaults.registered().size(), 13U) << "what inherits or may be absent is not";
}

TEST_F(PelloSettingsTest, EverySettingIsWrittenAtOnceInItsFormAndReadBackByTheNextStart) {
    auto& first = start();
    const std::vector<Bang> bangs{
        {.keyword = "k", .name = "Name", .addressTemplate = "https://k.example/{query}"}};
    first.activation.set(Activation::capsLock);
    first.glyphCombo.set(KeyCombo(6, KeyCombo::kControl));
    first.panelPlacement.set({.centerX = 0.25, .top = 0.75});
    first.searchEngine.set(WebSearchEngine::kagi);
    first.extraDirectories.set({"/opt/one", "/opt/two words"});
    first.maximumResults.set(9);
    first.fontSize.set(18.5);
    first.commandTabPosition.set(CommandTabPosition::bottom);
    first.bangs.set(bangs);
    first.urlAliases.set({{.alias = "Mail", .url = "mail.example"}});

    EXPECT_THAT(stored("activation"), Optional(PropertyValue("capsLock")));
    EXPECT_THAT(stored("glyphCombo"), Optional(PropertyValue("6:262144")));
    EXPECT_THAT(stored("panelPlacement"), Optional(PropertyValue("0.25:0.75")));
    EXPECT_THAT(stored("extraDirectories"),
                Optional(PropertyValue(PropertyArray{"/opt/one", "/opt/two words"})));
    EXPECT_THAT(stored("maximumResults"), Optional(PropertyValue(9)));
    EXPECT_THAT(stored("fontSize"), Optional(PropertyValue(18.5)));
    EXPECT_THAT(stored("bangs"), Optional(jsonData(Bang::encodeList(bangs))));

    auto& second = start();
    EXPECT_EQ(second.activation(), Activation::capsLock);
    EXPECT_EQ(second.glyphCombo(), KeyCombo(6, KeyCombo::kControl));
    EXPECT_EQ(second.searchEngine(), WebSearchEngine::kagi);
    EXPECT_THAT(second.extraDirectories(), ElementsAre("/opt/one", "/opt/two words"));
    EXPECT_EQ(second.commandTabPosition(), CommandTabPosition::bottom);
    EXPECT_EQ(second.bangs(), bangs);
    EXPECT_THAT(second.urlAliases(), SizeIs(1));

    second.glyphCombo.set(std::nullopt);
    EXPECT_THAT(stored("glyphCombo"), Eq(std::nullopt));
    EXPECT_EQ(start().glyphCombo(), std::nullopt);
}

TEST_F(PelloSettingsTest, TheSplitSwitchesInheritUntilEachIsSetByItself) {
    auto& before = startWith("includesSystemCommands", false);
    EXPECT_FALSE(before.includesSettingsPanes());
    EXPECT_FALSE(before.includesAudioOutputs());
    EXPECT_FALSE(before.includesRunningApps());
    EXPECT_THAT(defaults.storedKeys(), ElementsAre("includesSystemCommands"));

    before.includesAudioOutputs.set(true);
    before.includesRunningApps.set(false); // the inherited value, but now the user's own
    before.includesSystemCommands.set(true);
    auto& after = start();
    EXPECT_TRUE(after.includesSettingsPanes());
    EXPECT_TRUE(after.includesAudioOutputs());
    EXPECT_FALSE(after.includesRunningApps());
}

TEST_F(PelloSettingsTest, WhatCannotBeReadIsTheDefaultAndStaysStored) {
    EXPECT_EQ(startWith("activation", "leftCommand").activation(), Activation::rightCommand);
    EXPECT_EQ(startWith("searchEngine", "DuckDuckGo").searchEngine(), WebSearchEngine::duckDuckGo);
    EXPECT_EQ(startWith("commandTabPosition", 2).commandTabPosition(),
              CommandTabPosition::withLauncher);
    EXPECT_EQ(startWith("keyCombo", "49").keyCombo(), KeyCombo(49, KeyCombo::kOption));
    EXPECT_EQ(startWith("glyphCombo", "x").glyphCombo(), std::nullopt);
    EXPECT_EQ(startWith("panelPlacement", "0.5:nan").panelPlacement(), PanelPlacement{});
    EXPECT_EQ(startWith("maximumResults", "9").maximumResults(), 8);
    EXPECT_TRUE(startWith("usesGlass", "NO").usesGlass());
    EXPECT_TRUE(startWith("includesRunningApps", 0).includesRunningApps());
    EXPECT_THAT(startWith("extraDirectories", PropertyArray{"/a", 1}).extraDirectories(),
                IsEmpty());
    EXPECT_THAT(startWith("bangs", "[]").bangs(), SizeIs(6)); // text, not data
    EXPECT_THAT(stored("bangs"), Optional(PropertyValue("[]")));
}

TEST_F(PelloSettingsTest, SizesThatNothingCanBeDrawnAtReadAsTheDefault) {
    for (const double size : {std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity(), -4.0, 0.0, 1e9}) {
        EXPECT_EQ(startWith("fontSize", size).fontSize(), 16) << size;
        EXPECT_EQ(startWith("commandTabIconSize", size).commandTabIconSize(), 26) << size;
    }
    EXPECT_EQ(startWith("fontSize", 20).fontSize(), 20); // an integer is a number, too
}

TEST_F(PelloSettingsTest, ListsThatDoNotDecodeStayStoredUntilTheUserChangesThem) {
    const auto unreadable = jsonData(R"([{"keyword":"g"}])");
    auto& running = startWith("bangs", unreadable);
    EXPECT_THAT(running.bangs(), SizeIs(6));
    EXPECT_THAT(stored("bangs"), Optional(unreadable));
    running.bangs.set(running.bangs()); // the choice of what is shown is a choice
    EXPECT_THAT(stored("bangs"), Optional(jsonData(Bang::encodeList(running.bangs()))));
    running.bangs.set({});
    EXPECT_THAT(stored("bangs"), Optional(jsonData("[]")));
    EXPECT_THAT(start().bangs(), IsEmpty()) << "an empty list is a choice";
    EXPECT_THAT(startWith("urlAliases", jsonData("\x01")).urlAliases(), IsEmpty());
}

TEST_F(PelloSettingsTest, EmitsOnlyWhenTheValueDidChange) {
    auto& running = start();
    int own = 0;
    int any = 0;
    std::vector<std::int64_t> seen;
    const auto first = running.maximumResults.changed.connect([&] {
        ++own;
        seen.push_back(running.maximumResults());
    });
    const auto second = running.changed.connect([&] { ++any; });
    running.maximumResults.set(8);
    running.maximumResults.set(9);
    const int writes = defaults.writeCount();
    running.maximumResults.set(9);
    EXPECT_EQ(defaults.writeCount(), writes) << "it is there already";
    running.usesGlass.set(false);
    running.maximumResults.reset();
    EXPECT_EQ(own, 2);
    EXPECT_EQ(any, 3);
    EXPECT_THAT(seen, ElementsAre(9, 8));
    EXPECT_THAT(defaults.storedKeys(), ElementsAre("usesGlass"));
}

TEST_F(PelloSettingsTest, FollowsAnotherProcess) {
    auto& running = start();
    int heard = 0;
    const auto first = running.activation.changed.connect([&] { ++heard; });
    const auto second = running.bangs.changed.connect([&] { ++heard; });
    defaults.setElsewhere("activation", "keyCombo");
    defaults.setElsewhere("activation", "keyCombo");
    defaults.setElsewhere("bangs", jsonData("not decodable"));
    defaults.setElsewhere("somethingElse", 1);
    EXPECT_EQ(running.activation(), Activation::keyCombo);
    EXPECT_EQ(heard, 1);

    running.includesAudioOutputs.set(true);
    defaults.setElsewhere("includesSystemCommands", false);
    EXPECT_FALSE(running.includesSettingsPanes()) << "it inherits";
    EXPECT_FALSE(running.includesRunningApps());
    EXPECT_TRUE(running.includesAudioOutputs()) << "it has a value of its own";
}

TEST_F(PelloSettingsTest, LaunchAtLoginIsWhatThePlatformSays) {
    loginItem.enabled = true;
    auto& running = start();
    EXPECT_TRUE(running.launchAtLogin());
    running.launchAtLogin.set(false);
    EXPECT_FALSE(loginItem.enabled);

    loginItem.refuses = true;
    running.launchAtLogin.set(true);
    EXPECT_FALSE(running.launchAtLogin());
    loginItem.enabled = true; // by the user, in the system's own settings
    running.launchAtLogin.set(true);
    EXPECT_TRUE(running.launchAtLogin()) << "nothing to ask for, so nothing to refuse";
    EXPECT_EQ(defaults.writeCount(), 0);
}

} // namespace
} // namespace pello
