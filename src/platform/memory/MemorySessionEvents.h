#pragma once

#include "platform/SessionEvents.h"

namespace pello {

/// A session in which nothing happens unless the owner emits it.
class MemorySessionEvents final : public SessionEvents {};

} // namespace pello
