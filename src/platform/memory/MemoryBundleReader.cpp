#include "platform/memory/MemoryBundleReader.h"

namespace pello {

std::string MemoryBundleReader::identity(const std::filesystem::path& /*root*/,
                                         const std::filesystem::path& candidate) const {
    return candidate.string();
}

std::optional<BundleDescription>
MemoryBundleReader::describe(const std::filesystem::path& candidate) const {
    ++describedCount_;
    const auto found = descriptions.find(candidate);
    return found != descriptions.end() ? std::optional(found->second) : std::nullopt;
}

} // namespace pello
