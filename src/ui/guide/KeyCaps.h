#pragma once

#include <QStringList>
#include <QWidget>

namespace pello {

/// Keys as they stand on a keyboard, side by side.
class KeyCaps final : public QWidget {
public:
    explicit KeyCaps(const QStringList& keys, QWidget* parent = nullptr);

    void setKeys(const QStringList& keys);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int capWidth(const QString& key) const;

    QStringList keys_;
};

} // namespace pello
