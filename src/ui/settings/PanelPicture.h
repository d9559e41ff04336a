#pragma once

#include "core/settings/PelloSettings.h"

#include <QWidget>

namespace pello {

struct PanelStyle;

/// A small picture of the launcher as the settings make it look, which follows them.
class PanelPicture final : public QWidget {
public:
    /// `settings` must outlive the picture.
    explicit PanelPicture(PelloSettings& settings);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintBackdrop(QPainter& painter) const;
    void paintField(QPainter& painter, const PanelStyle& style) const;
    void paintRows(QPainter& painter, const PanelStyle& style) const;

    PelloSettings& settings_;
};

} // namespace pello
