#pragma once

#include "platform/Workspace.h"

#include <set>
#include <vector>

namespace pello {

/// A desktop that notes what it was asked to open.
class MemoryWorkspace final : public Workspace {
public:
    void openApplication(const std::filesystem::path& application) override;
    void openAddress(std::string_view address) override;
    void reveal(const std::filesystem::path& file) override;

    /// Applications and files that cannot be opened or shown.
    std::set<std::filesystem::path> broken;

    std::vector<std::filesystem::path> openedApplications;
    std::vector<std::string> openedAddresses;
    std::vector<std::filesystem::path> revealed;

private:
    /// Whether `file` is broken; says so.
    [[nodiscard]] bool refuses(const std::filesystem::path& file) const;
};

} // namespace pello
