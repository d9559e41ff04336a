#include "platform/memory/MemoryWorkspace.h"

namespace pello {

void MemoryWorkspace::openApplication(const std::filesystem::path& application) {
    if (!refuses(application)) {
        openedApplications.push_back(application);
    }
}

void MemoryWorkspace::openAddress(std::string_view address) {
    openedAddresses.emplace_back(address);
}

void MemoryWorkspace::reveal(const std::filesystem::path& file) {
    if (!refuses(file)) {
        revealed.push_back(file);
    }
}

bool MemoryWorkspace::refuses(const std::filesystem::path& file) const {
    const bool isBroken = broken.contains(file);
    if (isBroken) {
        failed.emit(file.string() + " could not be opened.");
    }
    return isBroken;
}

} // namespace pello
