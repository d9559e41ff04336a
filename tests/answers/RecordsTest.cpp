#include "answers/Bang.h"
#include "answers/URLAlias.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace pello {
namespace {

using testing::Eq;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Optional;

const Uuid kId = *Uuid::fromText("0F1E2D3C-4B5A-6978-8796-a5b4c3d2e1f0");

Bang bang(std::string keyword, std::string name, std::string address) {
    return {.keyword = std::move(keyword),
            .name = std::move(name),
            .addressTemplate = std::move(address),
            .id = kId};
}

TEST(UuidTest, ReadsEitherCaseAndWritesUpperCase) {
    EXPECT_EQ(kId.text(), "0F1E2D3C-4B5A-6978-8796-A5B4C3D2E1F0");
    EXPECT_THAT(Uuid::fromText(kId.text()), Optional(kId));
    for (const char* text :
         {"", "0F1E2D3C4B5A69788796A5B4C3D2E1F0",
          "0F1E2D3C-4B5A-6978-8796-A5B4C3D2E1F", // a digit short
          "0F1E2D3C-4B5A-6978-8796-A5B4C3D2E1F0 ", "0F1E2D3C-4B5A-6978-8796-A5B4C3D2E1G0",
          "0F1E2D3C04B5A-6978-8796-A5B4C3D2E1F0", "-F1E2D3C-4B5A-6978-8796-A5B4C3D2E1F0"}) {
        EXPECT_THAT(Uuid::fromText(text), Eq(std::nullopt)) << text;
    }
}

TEST(UuidTest, RandomOnesAreOfVersionFourAndDiffer) {
    std::set<std::string> seen;
    for (int i = 0; i < 200; ++i) {
        const std::string text = Uuid::random().text();
        EXPECT_THAT(text, MatchesRegex("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-"
                                       "[89AB][0-9A-F]{3}-[0-9A-F]{12}"));
        EXPECT_TRUE(seen.insert(text).second) << text;
    }
}

TEST(BangTest, AListReadsBackAsWritten) {
    const std::vector<Bang> bangs{bang("g", "Quote \" and \\", "https://a.example/?q={query}"),
                                  bang("", "наука\n\t", "")};
    EXPECT_THAT(Bang::decodeList(Bang::encodeList(bangs)), Optional(bangs));
    EXPECT_THAT(Bang::decodeList(Bang::encodeList({})), Optional(IsEmpty()));
    EXPECT_EQ(Bang::encodeList({bang("g", "G", "t")}),
              R"([{"keyword":"g","name":"G","template":"t","id":")" + kId.text() + R"("}])");
}

TEST(BangTest, OneUnreadableEntryMakesTheListUnreadable) {
    const std::string good =
        R"({"keyword":"g","name":"G","template":"t","id":")" + kId.text() + R"(","extra":1})";
    EXPECT_TRUE(Bang::decodeList('[' + good + ']').has_value());
    const std::string id = kId.text();
    for (const std::string& bad : std::vector<std::string>{
             R"({"name":"G","template":"t","id":")" + id + R"("})",
             R"({"keyword":"g","name":"G","template":"t","id":"1"})",
             R"({"keyword":7,"name":"G","template":"t","id":")" + id + R"("})", "7"}) {
        EXPECT_THAT(Bang::decodeList('[' + good + ',' + bad + ']'), Eq(std::nullopt)) << bad;
    }
    for (const std::string& text :
         std::vector<std::string>{"", good, "[]x", "[\"\xff\"]", std::string(100'000, '[')}) {
        EXPECT_THAT(Bang::decodeList(text), Eq(std::nullopt)) << text.substr(0, 80);
    }
}

TEST(URLAliasTest, AListReadsBackAsWrittenAndNeedsAllKeys) {
    const std::vector<URLAlias> aliases{{.alias = "Mail", .url = "mail.example", .id = kId}};
    EXPECT_THAT(URLAlias::decodeList(URLAlias::encodeList(aliases)), Optional(aliases));
    EXPECT_EQ(URLAlias::encodeList(aliases),
              R"([{"alias":"Mail","url":"mail.example","id":")" + kId.text() + R"("}])");
    EXPECT_THAT(URLAlias::decodeList(R"([{"alias":"Mail","url":"mail.example"}])"),
                Eq(std::nullopt));
}

} // namespace
} // namespace pello
