#pragma once

#include "base/PropertyValue.h"
#include "platform/BundleReader.h"

#include <filesystem>
#include <optional>

namespace pello {

/// What an application bundle's information dictionary says about it; nothing when the bundle at
/// `bundle` is not to be listed: a background-only one, and an agent of the system itself. Agents
/// elsewhere are programs that the user put there, and stay.
[[nodiscard]] std::optional<BundleDescription> describeBundle(const std::filesystem::path& bundle,
                                                              const PropertyDictionary& info);

} // namespace pello
