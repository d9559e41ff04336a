#pragma once

#include "base/RawValues.h"

namespace pello {

/// What summons the panel: a tap of one lone modifier key, or a key combo.
enum class Activation { rightCommand, rightOption, rightControl, capsLock, keyCombo };

template <>
struct RawValues<Activation> {
    static constexpr std::array names{"rightCommand", "rightOption", "rightControl", "capsLock",
                                      "keyCombo"};
};

} // namespace pello
