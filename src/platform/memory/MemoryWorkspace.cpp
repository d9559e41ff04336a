#include "platform/memory/MemoryWorkspace.h"

namespace pello {

void MemoryWorkspace::openApplication(const std::filesystem::path& application) {
    openedApplications.push_back(application);
}

void MemoryWorkspace::openAddress(std::string_view address) {
    openedAddresses.emplace_back(address);
}

void MemoryWorkspace::reveal(const std::filesystem::path& file) {
    revealed.push_back(file);
}

} // namespace pello
