#pragma once

#include "core/controller/RowRemark.h"
#include "core/items/SearchResult.h"
#include "ui/icons/IconPainter.h"
#include "ui/theme/PanelStyle.h"

#include <QAbstractItemDelegate>

#include <optional>

namespace pello {

/// Paints the panel's rows: icon, title with the matched letters marked, subtitle, and a pill at
/// the end.
class ResultDelegate final : public QAbstractItemDelegate {
public:
    /// Both must outlive the delegate.
    ResultDelegate(const PanelStyle& style, IconLoader& icons);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;

    /// Lets the icon of `item` be loaded before it is painted; `scale` as in IconPainter.
    void requestIcon(const LaunchItem& item, double scale) const;

    /// Where the icons of a list as wide as `list` are.
    [[nodiscard]] QRect iconColumn(const QRect& list, Qt::LayoutDirection direction) const;

    /// What is painted anew; texts beside it are left as they are.
    QRect damage;

    /// What the selected row says was done with it.
    std::optional<RowRemark> remark;

private:
    /// What stands at the end of a row.
    struct Accessory {
        QString text;
        bool isChip = false;
    };

    [[nodiscard]] Accessory accessory(const LaunchItem& item, bool isSelected) const;
    [[nodiscard]] QRect paintAccessory(QPainter& painter, const QRect& area,
                                       Qt::LayoutDirection direction,
                                       const Accessory& accessory) const;
    void paintTexts(QPainter& painter, const QRect& area, const SearchResult& result,
                    const QString& subtitle) const;

    const PanelStyle& style_;
    IconPainter icons_;
};

} // namespace pello
