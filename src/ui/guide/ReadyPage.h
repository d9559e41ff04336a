#pragma once

#include "ui/guide/GuidePage.h"
#include "ui/guide/GuideServices.h"
#include "ui/guide/KeyCaps.h"

namespace pello {

/// The few keys that are worth knowing.
class ReadyPage final : public GuidePage {
public:
    /// `services` must outlive the page.
    ReadyPage(const GuideServices& services, QWidget* parent);

    void refresh() override;

private:
    const GuideServices& services_;
    KeyCaps* activation_;
};

} // namespace pello
