#include "app/CommandLine.h"
#include "app/client/ClientArguments.h"
#include "app/client/ProgramFiles.h"
#include "support/TemporaryFolder.h"

#include <QProcess>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace pello {
namespace {

namespace fs = std::filesystem;

std::string installed(const fs::path& program) {
    fs::create_directories(program.parent_path());
    fs::copy_file("/bin/true", program);
    return program.string();
}

TEST(ClientProgramTest, WhatItAnswersItselfIsWhatTheFullProgramUnderstands) {
    using Words = std::vector<const char*>;
    for (const Words& words :
         {Words{"toggle"}, Words{"hide"}, Words{"reindex"}, Words{"guide"}, Words{"ping"},
          Words{"quit"}, Words{"version"}, Words{"show"}, Words{"show", ""},
          Words{"show", "a  b", "settings"}, Words{"settings"}, Words{"settings", "bangs"},
          Words{"pick"}, Words{"pick", "--prompt", "A b"}, Words{"pick", "--prompt", ""}}) {
        const auto quick = quickCommand(words);
        ASSERT_TRUE(quick) << testing::PrintToString(words);
        Words line = words;
        line.insert(line.begin(), "pello");
        const auto full = parseCommandLine(static_cast<int>(line.size()), line.data());
        std::visit(
            [&](const auto& command) {
                using Chosen = std::decay_t<decltype(command)>;
                EXPECT_EQ(std::get<Chosen>(std::get<Command>(full)), command)
                    << testing::PrintToString(words);
            },
            *quick);
    }
    for (const Words& words :
         {Words{}, Words{"--show"}, Words{"toggle", "x"}, Words{"toggle", "--help"},
          Words{"show", "-h"}, Words{"pick", "--prompt"}, Words{"pick", "x"},
          Words{"pick", "--prompt", "-x"}, Words{"show", "--", "-x"}, Words{"settings", "list"},
          Words{"settings", "nowhere"}, Words{"settings", "bangs", "x"}, Words{"frobnicate"}}) {
        EXPECT_FALSE(quickCommand(words)) << testing::PrintToString(words);
    }
}

TEST(ClientProgramTest, ItLinksNothingButTheLanguagesLibraries) {
    QProcess readelf;
    readelf.start("readelf", {"--dynamic", "--wide", PELLO_PROGRAM});
    readelf.waitForFinished();
    int count = 0;
    for (const QByteArray& line : readelf.readAllStandardOutput().split('\n')) {
        if (line.contains("(NEEDED)")) {
            ++count;
            EXPECT_THAT(line.toStdString(),
                        testing::ContainsRegex("\\[(libc|libm|libstdc\\+\\+|libgcc_s|libresolv|"
                                               "ld-linux[-a-z0-9_]*)\\.so"));
        }
    }
    EXPECT_GT(count, 0);
}

TEST(ClientProgramTest, BothProgramsFindEachOtherWhereTheyAreInstalled) {
    const TemporaryFolder folder;
    const std::string alone = installed(folder.path() / "alone/pello-launcher");
    EXPECT_EQ(clientFor(alone), alone);
    EXPECT_EQ(launcherFor((folder.path() / "nowhere/pello").string()), "");
    for (const auto& [client, launcher] : {std::pair("a/pello", "a/pello-launcher"),
                                           {"b/bin/pello", "b/libexec/pello/pello-launcher"}}) {
        const std::string clientFile = installed(folder.path() / client);
        const std::string launcherFile = installed(folder.path() / launcher);
        EXPECT_EQ(launcherFor(clientFile), launcherFile);
        EXPECT_EQ(clientFor(launcherFile), clientFile);
    }
}

} // namespace
} // namespace pello
