#pragma once

#include "platform/linux/FileDescriptor.h"

#include <sys/un.h>

#include <optional>
#include <string>

namespace pello {

/// The address of the socket at `path`; nothing when that is empty or too long for one.
[[nodiscard]] std::optional<sockaddr_un> localAddress(const std::string& path);

/// A socket that is connected to whoever listens at `path`, or none.
[[nodiscard]] FileDescriptor connectedTo(const std::string& path);

} // namespace pello
