#pragma once

#include "base/RawValues.h"

namespace pello {

/// The pages of the settings window, in their order.
enum class SettingsTab { general, appearance, sources, bangs, aliases };

template <>
struct RawValues<SettingsTab> {
    static constexpr std::array names{"general", "appearance", "sources", "bangs", "aliases"};
};

} // namespace pello
