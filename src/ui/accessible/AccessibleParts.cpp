#include "ui/accessible/AccessibleParts.h"

#include "ui/guide/GuidePage.h"
#include "ui/panel/FailureRows.h"
#include "ui/panel/NoticeRow.h"
#include "ui/settings/KeyComboRecorder.h"

#include <QAccessibleWidget>

#include <string_view>
#include <vector>

namespace pello {
namespace {

/// One failure. It lasts as long as its list, and is invalid while there are fewer failures.
class FailureInterface final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    FailureInterface(FailureRows& rows, int row) : rows_(rows), row_(row) {}

    bool isValid() const override { return row_ < rows_.count(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&rows_);
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? rows_.spoken(row_) : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override {
        const QRect row = rows_.rowRect(row_);
        return {rows_.mapToGlobal(row.topLeft()), row.size()};
    }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.selectable = true;
        state.focusable = true;
        state.selected = state.focused = rows_.selection() == row_;
        state.invalid = !isValid();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (name == pressAction() && isValid()) {
            rows_.select(row_);
            rows_.openSelected();
        }
    }
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    FailureRows& rows_;
    int row_;
};

class FailureListInterface final : public QAccessibleWidget {
public:
    explicit FailureListInterface(FailureRows& rows)
        : QAccessibleWidget(&rows, QAccessible::List), rows_(rows) {}
    ~FailureListInterface() override {
        for (const QAccessible::Id id : ids_) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }
    FailureListInterface(const FailureListInterface&) = delete;
    FailureListInterface& operator=(const FailureListInterface&) = delete;

    int childCount() const override { return rows_.count(); }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= rows_.count()) {
            return nullptr;
        }
        while (index >= static_cast<int>(ids_.size())) {
            auto* row = new FailureInterface(rows_, static_cast<int>(ids_.size()));
            // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the registry owns it
            ids_.push_back(QAccessible::registerAccessibleInterface(row));
        }
        return QAccessible::accessibleInterface(ids_[static_cast<std::size_t>(index)]);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        for (int index = 0; index < childCount(); ++index) {
            if (this->child(index) == child) {
                return index;
            }
        }
        return -1;
    }

private:
    FailureRows& rows_;
    mutable std::vector<QAccessible::Id> ids_; // made as they are asked for
};

class NoticeInterface final : public QAccessibleWidget {
public:
    explicit NoticeInterface(NoticeRow& row)
        : QAccessibleWidget(&row, QAccessible::AlertMessage), row_(row) {}

    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (name == pressAction() && row_.onDismiss) {
            row_.onDismiss();
        }
    }

private:
    NoticeRow& row_;
};

/// Without this it would be a check box, and keep the shortcut to itself.
class RecorderInterface final : public QAccessibleWidget {
public:
    explicit RecorderInterface(KeyComboRecorder& recorder)
        : QAccessibleWidget(&recorder, QAccessible::PushButton), recorder_(recorder) {}

    QString text(QAccessible::Text kind) const override {
        const QString text = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name ? text + QStringLiteral(": ") + recorder_.text() : text;
    }
    QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name == pressAction()) {
            recorder_.click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    KeyComboRecorder& recorder_;
};

/// Whether it is a window that is nothing but one: dialogs and menus have roles of their own.
bool isPlainWindow(const QWidget& widget) {
    return widget.isWindow() && std::string_view(widget.metaObject()->className()) == "QWidget";
}

QAccessibleInterface* interfaceOf(const QString& /*className*/, QObject* object) {
    if (auto* rows = dynamic_cast<FailureRows*>(object)) {
        return new FailureListInterface(*rows);
    }
    if (auto* row = dynamic_cast<NoticeRow*>(object)) {
        return new NoticeInterface(*row);
    }
    if (auto* recorder = dynamic_cast<KeyComboRecorder*>(object)) {
        return new RecorderInterface(*recorder);
    }
    if (auto* page = dynamic_cast<GuidePage*>(object)) {
        return new QAccessibleWidget(page, QAccessible::Grouping);
    }
    if (auto* widget = qobject_cast<QWidget*>(object);
        widget != nullptr && isPlainWindow(*widget)) {
        return new QAccessibleWidget(widget, QAccessible::Window);
    }
    return nullptr;
}

} // namespace

void describeToAssistiveTechnology() {
    QAccessible::installFactory(interfaceOf);
}

} // namespace pello
