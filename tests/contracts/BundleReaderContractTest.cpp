#include "platform/bundles/InfoPlistBundleReader.h"
#include "platform/linux/DesktopBundleReader.h"
#include "platform/memory/MemoryBundleReader.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pello {
namespace {

namespace fs = std::filesystem;

/// One reader, and how an application that calls itself "Editor" looks to it.
class MemoryDriver {
public:
    MemoryDriver() { reader_.folders = {folder.path()}; }
    const BundleReader& reader() { return reader_; }
    fs::path editor(const std::string& name) {
        const fs::path path = folder.path() / (name + ".app");
        reader_.descriptions[path] = {.name = "Editor"};
        return path;
    }

    TemporaryFolder folder;

private:
    MemoryBundleReader reader_;
};

class DesktopDriver {
public:
    const BundleReader& reader() { return reader_; }
    fs::path editor(const std::string& name) const {
        return folder.write(name + ".desktop",
                            "[Desktop Entry]\nType=Application\nName=Editor\nExec=/bin/true\n");
    }

    TemporaryFolder folder;

private:
    DesktopBundleReader reader_{
        Environment{{{"HOME", folder.path().string()}, {"PATH", "/usr/bin:/bin"}}}};
};

class InfoPlistDriver {
public:
    const BundleReader& reader() { return reader_; }
    fs::path editor(const std::string& name) const {
        folder.write(name + ".app/Contents/Info.plist",
                     "<plist version=\"1.0\"><dict><key>CFBundleName</key>"
                     "<string>Editor</string></dict></plist>");
        return folder.path() / (name + ".app");
    }

    TemporaryFolder folder;

private:
    InfoPlistBundleReader reader_{folder.path()};
};

template <class Driver>
class BundleReaderContractTest : public testing::Test {
protected:
    const BundleReader& reader() { return driver.reader(); }
    Driver driver;
};

using Drivers = testing::Types<MemoryDriver, DesktopDriver, InfoPlistDriver>;
TYPED_TEST_SUITE(BundleReaderContractTest, Drivers);

TYPED_TEST(BundleReaderContractTest, DescribesACandidateAndNothingElse) {
    const auto found = this->reader().describe(this->driver.editor("editor"));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->name, "Editor");
    const fs::path missing =
        this->driver.folder.path() / ("gone." + std::string(this->reader().candidateExtension()));
    EXPECT_FALSE(this->reader().describe(missing));
}

TYPED_TEST(BundleReaderContractTest, IdentityTellsCandidatesOfOneFolderApartWithoutReadingThem) {
    const fs::path root = this->driver.folder.path();
    const std::string suffix = "." + std::string(this->reader().candidateExtension());
    const auto identity = [&](const std::string& name) {
        return this->reader().identity(root, root / (name + suffix));
    };
    EXPECT_EQ(identity("one"), identity("one"));
    EXPECT_NE(identity("one"), identity("two"));
    EXPECT_NE(identity("one"), identity("inner/one"));
}

} // namespace
} // namespace pello
