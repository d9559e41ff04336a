#include "ui/icons/IconLoader.h"

#include "platform/memory/MemoryMainLoop.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace pello {
namespace {

using State = IconLoader::State;

/// Names the image that lies beside each application.
class NeighbourIcons final : public IconSource {
public:
    [[nodiscard]] std::optional<std::string>
    iconName(const std::filesystem::path& application) const override {
        return application.string() + ".png";
    }
};

class IconLoaderTest : public testing::Test {
protected:
    void draw(const std::string& name, QSize size) {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(Qt::red);
        ASSERT_TRUE(image.save(QString::fromStdString((folder.path() / name).string())));
    }
    IconLoader::Answer ask(const std::string& name) {
        return icons->ofFile(folder.path() / name, 32);
    }

    TemporaryFolder folder;
    MemoryMainLoop loop;
    std::unique_ptr<IconLoader> icons = std::make_unique<IconLoader>(
        loop, std::make_shared<NeighbourIcons>(),
        std::make_shared<SharedIconTheme>([] { return IconTheme({}, {}); }));
};

TEST_F(IconLoaderTest, AnImageArrivesLaterAndFillsTheSquareInProportion) {
    draw("app.png", {128, 64});
    int announcements = 0;
    const auto counting = icons->loaded.connect([&] { ++announcements; });
    EXPECT_EQ(ask("app").state, State::loading);
    EXPECT_EQ(ask("app").state, State::loading);
    EXPECT_EQ(ask("other").state, State::loading);
    loop.settle();
    EXPECT_EQ(announcements, 1) << "all that were asked for together are painted at once";
    EXPECT_EQ(ask("app").state, State::ready);
    EXPECT_EQ(ask("app").image.size(), QSize(32, 16));
    loop.settle();
    EXPECT_EQ(announcements, 1) << "it is kept";
}

TEST_F(IconLoaderTest, WhatIsMissingIsLookedForAgainOnlyWhenAsked) {
    folder.write("broken.png", "no image at all");
    for (const char* name : {"broken", "absent"}) {
        (void)ask(name);
        loop.settle();
        EXPECT_EQ(ask(name).state, State::missing) << name;
    }
    draw("absent.png", {32, 32});
    EXPECT_EQ(ask("absent").state, State::missing);
    icons->forgetMissing();
    EXPECT_EQ(ask("absent").state, State::missing) << "not each time the panel opens";
    loop.advance(std::chrono::minutes(1));
    icons->forgetMissing();
    (void)ask("absent");
    loop.settle();
    EXPECT_EQ(ask("absent").state, State::ready);
}

} // namespace
} // namespace pello
