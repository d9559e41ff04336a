#pragma once

#include "platform/BundleReader.h"

#include <atomic>
#include <map>

namespace pello {

/// Applications as a table: real files and folders are walked, what they say stands here. A
/// candidate that the table does not name is not listed.
class MemoryBundleReader final : public BundleReader {
public:
    explicit MemoryBundleReader(std::string extension = "app",
                                std::vector<std::filesystem::path> standardFolders = {})
        : folders(std::move(standardFolders)), extension_(std::move(extension)) {}

    std::vector<std::filesystem::path> folders;
    std::vector<std::filesystem::path> always;
    std::map<std::filesystem::path, BundleDescription> descriptions;

    [[nodiscard]] std::string_view candidateExtension() const override { return extension_; }
    [[nodiscard]] std::vector<std::filesystem::path> standardFolders() const override {
        return folders;
    }
    [[nodiscard]] std::vector<std::filesystem::path> alwaysListed() const override {
        return always;
    }
    [[nodiscard]] std::string identity(const std::filesystem::path& root,
                                       const std::filesystem::path& candidate) const override;
    [[nodiscard]] std::optional<BundleDescription>
    describe(const std::filesystem::path& candidate) const override;

    /// How many candidates were described so far.
    [[nodiscard]] int describedCount() const { return describedCount_; }

private:
    std::string extension_;
    mutable std::atomic<int> describedCount_ = 0;
};

} // namespace pello
