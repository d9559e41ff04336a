#include "updates/ReleaseVersion.h"

#include <gtest/gtest.h>

#include <array>

namespace pello {
namespace {

ReleaseVersion version(std::string_view text) {
    return ReleaseVersion::from(text).value();
}

TEST(ReleaseVersionTest, ComesBehindEveryEarlierOne) {
    const std::array<std::string_view, 14> ascending = {"0.9",         "0.10",
                                                        "1.0-1",       "1.0-alpha",
                                                        "1.0-alpha.1", "1.0-beta.2",
                                                        "1.0-beta10",  "1.0rc1",
                                                        "1.0",         "1.0.1",
                                                        "1.9",         "1.10",
                                                        "1.10.0.0.1",  "99999999999999999999.1"};
    for (std::size_t later = 0; later < ascending.size(); ++later) {
        for (std::size_t earlier = 0; earlier < ascending.size(); ++earlier) {
            EXPECT_EQ(version(ascending[earlier]) <=> version(ascending[later]), earlier <=> later)
                << ascending[earlier] << " and " << ascending[later];
        }
    }
}

TEST(ReleaseVersionTest, IsTheSameInOtherWords) {
    EXPECT_EQ(version("1"), version("1.0.0"));
    EXPECT_EQ(version(" v01.02\n"), version("1.2"));
    EXPECT_EQ(version("1.2+build.7"), version("1.2"));
    EXPECT_EQ(version("1.2~RC1"), version("1.2-rc.1"));
    EXPECT_EQ(version("0.0").text(), "0.0");
}

TEST(ReleaseVersionTest, OtherTextsAreNone) {
    for (const char* text : {"", "v", "latest", "1.", "1..2", ".1", "-1", "1.0 (7)", "1.0/2"}) {
        EXPECT_FALSE(ReleaseVersion::from(text)) << text;
    }
    EXPECT_FALSE(ReleaseVersion::from(std::string(65, '1')));
}

} // namespace
} // namespace pello
