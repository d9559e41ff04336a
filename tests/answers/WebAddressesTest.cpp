#include "answers/Bang.h"
#include "answers/URLAlias.h"
#include "answers/WebSearchEngine.h"
#include "base/Address.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;

std::string noClipboard() {
    ADD_FAILURE() << "the pasteboard was read";
    return {};
}

/// The bang that `query` meets and its arguments, as "keyword|arguments"; "" for none.
std::string match(std::string_view query, const std::vector<Bang>& bangs = Bang::starters()) {
    const auto found = Bang::match(query, bangs);
    return found ? found->bang.keyword + '|' + std::string(found->arguments) : "";
}

/// Bangs with these keywords.
std::vector<Bang> bangs(const std::vector<std::string>& keywords) {
    std::vector<Bang> result;
    for (const std::string& keyword : keywords) {
        result.push_back({.keyword = keyword});
    }
    return result;
}

std::vector<URLAlias> aliases(const std::vector<std::pair<std::string, std::string>>& pairs) {
    std::vector<URLAlias> result;
    for (const auto& [alias, url] : pairs) {
        result.push_back({.alias = alias, .url = url});
    }
    return result;
}

std::optional<std::string> address(std::string addressTemplate, std::string_view arguments) {
    return Bang{.addressTemplate = std::move(addressTemplate)}.url(arguments, noClipboard);
}

TEST(AddressTest, HasASchemeWhenItIsOneByTheStandard) {
    EXPECT_THAT(address::scheme("https://a.test/b?c#d"), Optional(Eq("https")));
    EXPECT_THAT(address::scheme("mailto:someone@a.test"), Optional(Eq("mailto")));
    EXPECT_THAT(address::scheme("localhost:3000"), Optional(Eq("localhost")));
    for (const char* text :
         {"", "a.test/b", "//a.test", ":x", "1a://x", "http://a b", "http://[::1", "http://a/%4",
          "http://a/ü", "http://a/{b}", "a\tb://c"}) {
        EXPECT_THAT(address::scheme(text), Eq(std::nullopt)) << text;
    }
}

TEST(BangTest, MeetsItsKeywordAtTheBeginningInAnyCase) {
    EXPECT_EQ(match("G cats"), "g|cats");
    EXPECT_EQ(match(" \tg  a  b&c \t"), "g|a  b&c");
    EXPECT_EQ(match("g"), "g|");
    EXPECT_EQ(match("gh parser"), "gh|parser");
    for (const char* query : {"", "  ", "gfoo", "cats g", "g\tcats", "g\u0308 cats", "g \u0308"}) {
        EXPECT_EQ(match(query), "") << query;
    }
    EXPECT_EQ(match("É x", bangs({"e\u0301"})), "e\u0301|x");
}

TEST(BangTest, OfSeveralTheLongestKeywordWinsAndThenTheFirst) {
    EXPECT_EQ(match("a b c", bangs({"", "a", "a b", "b"})), "a b|c");
    EXPECT_EQ(match("x y", bangs({"x", "X"})), "x|y");
    EXPECT_EQ(match("x y", bangs({"X", "x"})), "X|y");
}

TEST(BangTest, EscapesAllButLettersDigitsAndFourMarks) {
    EXPECT_THAT(address("https://a.test/?q={query}&again={query}", "a b&c+ä~{query}"),
                Optional(Eq("https://a.test/?q=a%20b%26c%2B%C3%A4~%7Bquery%7D"
                            "&again=a%20b%26c%2B%C3%A4~%7Bquery%7D")));
    EXPECT_THAT(address("app:{query}", ""), Optional(Eq("app:")));
    EXPECT_THAT(address("https://a.test/", "unused"), Optional(Eq("https://a.test/")));
    for (const char* broken :
         {"", "a.test/{query}", "https://a.test/ {query}", "https://a.test/{x}"}) {
        EXPECT_THAT(address(broken, "x"), Eq(std::nullopt)) << broken;
    }
}

TEST(BangTest, PutsThePasteboardIntoItsPlace) {
    const Bang both{.addressTemplate = "https://a.test/{query}/{clipboard}"};
    EXPECT_THAT(both.url("{clipboard}", [] { return "x {query}"; }),
                Optional(Eq("https://a.test/%7Bclipboard%7D/x%20%7Bquery%7D")));
}

TEST(BangTest, SaysWhatIsWrongWithAList) {
    EXPECT_THAT(Bang::problems(Bang::starters()), IsEmpty());
    EXPECT_THAT(Bang::problems(bangs({"", "a b", " "})),
                ElementsAre("a keyword is blank or contains a space"));
    EXPECT_THAT(
        Bang::problems(bangs({"yt", "G", "", "g", "YT", "g", "x"})),
        ElementsAre("a keyword is blank or contains a space", "g, yt appear more than once"));
}

TEST(WebSearchEngineTest, KeepsWhatAnAddressAllowsInItsQuery) {
    EXPECT_THAT(searchAddress(WebSearchEngine::duckDuckGo, "salt & pepper"),
                Optional(Eq("https://duckduckgo.com/?q=salt%20&%20pepper")));
    EXPECT_THAT(searchAddress(WebSearchEngine::kagi, "a=b+c/d?#[%]\xff"),
                Optional(Eq("https://kagi.com/search?q=a=b+c/d?%23%5B%25%5D%EF%BF%BD")));
}

TEST(URLAliasTest, ResolvesToAnAddressWithAScheme) {
    const auto resolved = [](std::string url) {
        return URLAlias{.url = std::move(url)}.resolvedURL();
    };
    EXPECT_THAT(resolved("\t mail.test/inbox "), Optional(Eq("https://mail.test/inbox")));
    for (const char* url : {"http://a.test", "notes:today", "localhost:3000", "x.test:8080"}) {
        EXPECT_THAT(resolved(url), Optional(Eq(url)));
    }
    for (const char* url : {"", " ", "a b.test", "https://a b", "[", "%"}) {
        EXPECT_THAT(resolved(url), Eq(std::nullopt)) << url;
    }
}

TEST(URLAliasTest, SaysWhatIsWrongWithAList) {
    EXPECT_THAT(URLAlias::problems(aliases({{"Mail", " a.test "}, {"News", "b.test"}})), IsEmpty());
    EXPECT_THAT(
        URLAlias::problems(aliases({{"Mail", "a"}, {"", "a b"}, {" mail", ""}, {" ", "b"}})),
        ElementsAre("an alias is blank", "a URL is blank or contains a space",
                    "mail appear more than once"));
}

} // namespace
} // namespace pello
