#include "updates/ReleaseFeed.h"

#include "updates/UpdateVerdict.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace pello {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string feed(const std::string& items) {
    return R"(<?xml version="1.0"?><rss version="2.0" xmlns:u="urn:updates"><channel><title>x</title>)" +
           items + "</channel></rss>";
}

std::vector<Release> releases(const std::string& bytes) {
    const auto contents = ReleaseFeed::read(bytes);
    const auto* problem = std::get_if<FeedProblem>(&contents);
    EXPECT_EQ(problem, nullptr) << problem->message;
    return problem == nullptr ? std::get<std::vector<Release>>(contents) : std::vector<Release>();
}

std::vector<std::string> versions(const std::vector<Release>& releases) {
    std::vector<std::string> texts;
    for (const Release& release : releases) {
        texts.push_back(release.version.text());
    }
    return texts;
}

std::string problem(const std::string& bytes) {
    const auto contents = ReleaseFeed::read(bytes);
    const auto* problem = std::get_if<FeedProblem>(&contents);
    return problem == nullptr ? "" : problem->title + ". " + problem->message;
}

TEST(ReleaseFeedTest, ReadsWhatItemsSayWhereverTheySayIt) {
    const auto found = releases(feed(R"(
        <item><title>1.9</title><u:version>1.9</u:version><pubDate>1 Feb 2026 09:00:00 GMT</pubDate>
            <description>&lt;p&gt;Old&lt;/p&gt;</description><link>https://example.org/1.9</link></item>
        <item><pubDate>Sat, 21 Nov 2026 23:30:00 -0800</pubDate>
            <description><![CDATA[<b onclick="x">New</b><script>y</script>]]> &amp;amp; more</description>
            <link>https://example.org</link>
            <enclosure url="https://example.org/p.deb" u:version="110" u:shortVersionString="1.10"/></item>
        <item><description>no version</description></item>
        <item><u:version>1.9.0</u:version><description>said before</description></item>
        <item><enclosure url="javascript:x" version="1.10-rc1"/><pubDate>31 Feb 2026</pubDate></item>)"));
    ASSERT_THAT(versions(found), ElementsAre("1.10", "1.10-rc1", "1.9"));
    using namespace std::chrono_literals;
    EXPECT_EQ(found[0].date, 2026y / 11 / 21);
    EXPECT_EQ(found[0].notes, "<b>New</b> &amp; more");
    EXPECT_EQ(found[0].link, "https://example.org/p.deb");
    EXPECT_EQ(found[1].date, std::nullopt);
    EXPECT_EQ(found[1].link, "");
    EXPECT_EQ(found[2].date, 2026y / 2 / 1);
    EXPECT_EQ(found[2].notes, "<p>Old</p>");
}

TEST(ReleaseFeedTest, DamageIsToldAndNeverMore) {
    const std::string whole = feed("<item><u:version>1</u:version></item>");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_THAT(problem(whole.substr(0, length)), HasSubstr("damaged")) << length;
    }
    EXPECT_THAT(problem("<html><body>Log in to this network</body></html>"),
                HasSubstr("This is no feed"));
    EXPECT_THAT(problem(feed(std::string(ReleaseFeed::kLargest, ' '))), HasSubstr("larger than 2"));
    EXPECT_THAT(problem(R"(<!DOCTYPE rss [<!ENTITY a "x"><!ENTITY b "&a;&a;&a;&a;">]>)" +
                        feed("<item><u:version>&b;</u:version></item>").substr(21)),
                HasSubstr("define entities"));
    std::string deep;
    for (int times = 0; times < 300'000; ++times) {
        deep += "<i>";
    }
    EXPECT_THAT(problem(feed("<item><description>" + deep)), HasSubstr("damaged"));
    EXPECT_TRUE(releases(feed("")).empty());
}

TEST(ReleaseFeedTest, ACheckSaysWhatItFound) {
    const auto verdict = [](const char* installed, const std::string& bytes,
                            UpdateVerdict::Place place = UpdateVerdict::Place::network) {
        return UpdateVerdict::of(ReleaseVersion::from(installed).value(), ReleaseFeed::read(bytes),
                                 place);
    };
    using Kind = UpdateVerdict::Kind;
    const std::string known = feed("<item><u:version>1.9</u:version></item>"
                                   "<item><u:version>1.10</u:version></item>");
    const auto newer = verdict("1.9", known);
    EXPECT_EQ(newer.kind, Kind::newer);
    EXPECT_EQ(newer.title, "Pello 1.10 is available");
    EXPECT_EQ(newer.message, "You have Pello 1.9.");
    EXPECT_EQ(newer.release->version.text(), "1.10");

    const auto current = verdict("1.10.0", known);
    EXPECT_EQ(current.kind, Kind::current);
    EXPECT_EQ(current.message, "You have Pello 1.10.0.");
    EXPECT_FALSE(current.release);
    EXPECT_THAT(verdict("1.10", known, UpdateVerdict::Place::thisComputer).message,
                HasSubstr("Only the release notes on this computer were asked"));

    const auto ahead = verdict("2.0-beta", known);
    EXPECT_EQ(ahead.kind, Kind::ahead);
    EXPECT_THAT(ahead.message, HasSubstr("The newest release is 1.10."));
    EXPECT_EQ(verdict("1", feed("")).kind, Kind::unknown);
    EXPECT_EQ(verdict("1", "<").title, "The release notes are damaged");
}

TEST(ReleaseFeedTest, TheShippedOneTellsOfThisVersion) {
    std::ostringstream bytes;
    bytes << std::ifstream(PELLO_SHIPPED_FEED).rdbuf();
    const auto shipped = releases(bytes.str());
    ASSERT_FALSE(shipped.empty());
    EXPECT_EQ(shipped.front().version.text(), PELLO_VERSION);
    EXPECT_TRUE(shipped.front().date);
    EXPECT_THAT(shipped.front().notes, HasSubstr("<li>"));
}

} // namespace
} // namespace pello
