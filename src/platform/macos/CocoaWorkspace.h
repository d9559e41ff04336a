#pragma once

#include "platform/Workspace.h"

namespace pello {

/// Opens things through the shared workspace.
class CocoaWorkspace final : public Workspace {
public:
    void openApplication(const std::filesystem::path& application) override;
    void openAddress(std::string_view address) override;
    void reveal(const std::filesystem::path& file) override;
};

} // namespace pello
