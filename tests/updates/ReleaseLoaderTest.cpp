#include "updates/ReleaseLoader.h"

#include "platform/memory/MemoryFeedReader.h"
#include "platform/memory/MemoryMainLoop.h"

#include <gtest/gtest.h>

#include <memory>

namespace pello {
namespace {

class ReleaseLoaderTest : public testing::Test {
protected:
    static constexpr const char* kAddress = "https://example.org/feed";

    /// What `load` ends in: the newest version, or the problem.
    void load(ReleaseLoader& loader) {
        loader.load([this](const ReleaseFeed::Contents& contents) {
            const auto* problem = std::get_if<FeedProblem>(&contents);
            said.push_back(problem != nullptr
                               ? problem->title
                               : std::get<std::vector<Release>>(contents).front().version.text());
        });
    }

    MemoryMainLoop loop{Date{0}};
    MemoryFeedReader reader{loop};
    std::vector<std::string> said;
};

TEST_F(ReleaseLoaderTest, BringsWhatStandsThereNowOrSaysWhyNot) {
    ReleaseLoader loader(reader, loop, kAddress);
    const auto turn = [&] {
        load(loader);
        EXPECT_TRUE(said.empty()) << "only in a later turn";
        loop.settle();
        return std::exchange(said, {});
    };
    using Words = std::vector<std::string>;
    EXPECT_EQ(turn(), Words{"The release notes cannot be reached"});
    reader.documents[kAddress] = "<rss><channel><item><version>3</version></item></channel></rss>";
    EXPECT_EQ(turn(), Words{"3"});
    reader.documents[kAddress] =
        FeedReader::Failure{.reason = FeedReader::Failure::Reason::refused, .detail = "Not found."};
    EXPECT_EQ(turn(), Words{"The release notes could not be read"});
    reader.documents[kAddress] = std::string(ReleaseFeed::kLargest + 1, ' ');
    EXPECT_EQ(turn(), Words{"The release notes are damaged"});
}

TEST_F(ReleaseLoaderTest, OnlyTheLastLoadCountsAndNoneOfALoaderThatIsGone) {
    reader.documents[kAddress] = "<rss><channel><item><version>3</version></item></channel></rss>";
    auto loader = std::make_unique<ReleaseLoader>(reader, loop, kAddress);
    load(*loader);
    load(*loader);
    loop.settle();
    EXPECT_EQ(said.size(), 1U);
    load(*loader);
    loader.reset();
    loop.settle();
    EXPECT_EQ(said.size(), 1U);
}

} // namespace
} // namespace pello
