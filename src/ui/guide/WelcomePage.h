#pragma once

#include "ui/guide/GuidePage.h"

namespace pello {

/// What this program does, in a few words.
class WelcomePage final : public GuidePage {
public:
    explicit WelcomePage(QWidget* parent);
};

} // namespace pello
