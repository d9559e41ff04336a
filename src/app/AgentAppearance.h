#pragma once

#include "base/Subscription.h"
#include "platform/linux/DesktopAppearance.h"

namespace pello {

/// Makes everything light or dark as the desktop is, and follows it. A toolkit that has taken the
/// desktop's own dark colours keeps them. Needs the application object.
class AgentAppearance {
public:
    AgentAppearance();

private:
    void apply() const;

    DesktopAppearance appearance_;
    Subscription onChange_;
};

} // namespace pello
