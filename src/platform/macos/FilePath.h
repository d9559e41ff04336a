#pragma once

#include <filesystem>

@class NSURL;

namespace pello {

/// The file URL of `path`, whose bytes are the file system's. Objective-C++ only.
[[nodiscard]] NSURL* fileURL(const std::filesystem::path& path);

} // namespace pello
