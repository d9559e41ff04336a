#pragma once

#include <QLabel>
#include <QWidget>

namespace pello {

/// One setting: its name, what it does, its control, and what is wrong with it.
///
/// The control takes its accessible name and description from the texts.
class SettingRow final : public QWidget {
public:
    /// Where the control stands.
    enum class Placement { beside, below };

    SettingRow(const QString& label, const QString& description, QWidget* control,
               Placement placement = Placement::beside);

    [[nodiscard]] QString label() const { return label_->text(); }
    [[nodiscard]] QString description() const { return description_->text(); }
    [[nodiscard]] QString notice() const { return notice_->text(); }
    /// What takes the focus: the control, or the one that stands for several.
    [[nodiscard]] QWidget& control() const { return control_; }

    /// An empty text takes no room.
    void setDescription(const QString& text);
    /// What is wrong, in sentences; empty when nothing.
    void setNotice(const QString& text);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QLabel* label_;
    QLabel* description_;
    QLabel* notice_;
    QWidget& control_;
};

} // namespace pello
