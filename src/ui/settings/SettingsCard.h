#pragma once

#include <QFrame>

namespace pello {

/// The ground on which rows of settings stand, with a line between those that are to be seen.
class SettingsCard final : public QFrame {
protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pello
