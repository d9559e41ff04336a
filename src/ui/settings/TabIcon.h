#pragma once

#include "ui/settings/SettingsTab.h"

#include <QIcon>

namespace pello {

/// The icon of a page of the settings: a white drawing on a coloured tile.
[[nodiscard]] QIcon tabIcon(SettingsTab tab);

} // namespace pello
