#include "core/settings/SettingsArchive.h"

#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryUserDefaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace pello {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;

/// One user's settings, and what carries them.
struct User {
    MemoryUserDefaults defaults;
    MemoryLoginItem loginItem;
    PelloSettings settings{defaults, loginItem};
    SettingsText text{settings};
    SettingsArchive archive{text};

    /// The complaint about an import; empty when there is none.
    std::string import(std::string_view exported) {
        const auto problem = archive.import(exported);
        return problem ? problem->sentence : "";
    }
};

TEST(SettingsArchiveTest, WhatOneUserExportsIsWhatAnotherGets) {
    User one;
    one.settings.maximumResults.set(3);
    one.settings.fontSize.set(20.5);
    one.settings.usesGlass.set(false);
    one.settings.glyphCombo.set(KeyCombo(3, KeyCombo::kOption));
    one.settings.extraDirectories.set({"/a \"b\"", "/ü"});
    one.settings.urlAliases.set({{.alias = "Mail", .url = "https://mail.example/"}});
    one.settings.ownsHyperMapping.set(true);
    one.settings.launchAtLogin.set(true);
    const std::string exported = one.archive.exported();

    User other;
    EXPECT_EQ(other.import(exported), "");
    EXPECT_EQ(other.archive.exported(), exported);
    EXPECT_EQ(other.settings.urlAliases(), one.settings.urlAliases());
    EXPECT_TRUE(other.loginItem.enabled);
    EXPECT_FALSE(other.settings.ownsHyperMapping()) << "the other machine's keyboard is untouched";

    const json values = json::parse(exported);
    EXPECT_EQ(values["maximumResults"], 3);
    EXPECT_EQ(values["usesGlass"], false);
    EXPECT_EQ(values["glyphCombo"], "3:524288");
    EXPECT_EQ(values["urlAliases"][0]["alias"], "Mail");
    EXPECT_EQ(values["bangs"].size(), Bang::starters().size());
}

TEST(SettingsArchiveTest, AnImportThatIsNotUnderstoodChangesNothing) {
    User user;
    EXPECT_THAT(user.import(R"({"maximumResults": 9, "fontSize": 2000})"),
                HasSubstr("\"fontSize\""));
    EXPECT_THAT(user.import(R"({"maximumResults": 9, "usesGlass": null})"),
                HasSubstr("\"usesGlass\""));
    EXPECT_THAT(user.import(R"({"bangs": [], "colour": "red"})"),
                HasSubstr("no setting \"colour\""));
    EXPECT_THAT(user.import("[1]"), HasSubstr("no JSON object"));
    EXPECT_THAT(user.import("{"), HasSubstr("no JSON object"));
    user.loginItem.refuses = true;
    EXPECT_THAT(user.import(R"({"fontSize": 20, "launchAtLogin": true})"), HasSubstr("refused"));
    EXPECT_THAT(user.defaults.storedKeys(), IsEmpty());
}

} // namespace
} // namespace pello
