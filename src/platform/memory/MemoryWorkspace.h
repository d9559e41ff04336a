#pragma once

#include "platform/Workspace.h"

#include <vector>

namespace pello {

/// A desktop that notes what it was asked to open.
class MemoryWorkspace final : public Workspace {
public:
    void openApplication(const std::filesystem::path& application) override;
    void openAddress(std::string_view address) override;
    void reveal(const std::filesystem::path& file) override;

    std::vector<std::filesystem::path> openedApplications;
    std::vector<std::string> openedAddresses;
    std::vector<std::filesystem::path> revealed;
};

} // namespace pello
