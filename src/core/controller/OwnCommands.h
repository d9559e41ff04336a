#pragma once

#include "search/PreparedList.h"

#include <functional>
#include <memory>

namespace pello {

/// The commands about the launcher itself, which call what stands there when one is run, if
/// anything. Both must outlive the list.
[[nodiscard]] std::shared_ptr<const PreparedList>
ownCommands(const std::function<void()>& checkForUpdates,
            const std::function<void()>& showReleaseNotes);

} // namespace pello
