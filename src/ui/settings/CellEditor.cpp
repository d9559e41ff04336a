#include "ui/settings/CellEditor.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace pello {
namespace {

constexpr auto kFormerText = "formerText";

} // namespace

QWidget* CellEditor::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                  const QModelIndex& index) const {
    auto* editor = new QLineEdit(parent);
    editor->setFrame(false);
    editor->setAutoFillBackground(true);
    editor->setPlaceholderText(index.data(Qt::UserRole).toString());
    editor->setAccessibleName(
        index.model()->headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
    editor->setProperty(kFormerText, index.data(Qt::EditRole));
    auto* self = const_cast<CellEditor*>(this);
    connect(editor, &QLineEdit::textEdited, self,
            [self, editor] { Q_EMIT self->commitData(editor); });
    return editor;
}

void CellEditor::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* field = static_cast<QLineEdit*>(editor);
    const QString text = index.data(Qt::EditRole).toString();
    if (field->text() != text) { // else the caret would jump
        field->setText(text);
    }
}

bool CellEditor::eventFilter(QObject* editor, QEvent* event) {
    auto* field = qobject_cast<QLineEdit*>(editor);
    if (field != nullptr && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        field->setText(field->property(kFormerText).toString());
        Q_EMIT commitData(field);
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}

} // namespace pello
