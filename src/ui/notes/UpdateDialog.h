#pragma once

#include "ui/notes/NotesServices.h"
#include "updates/ReleaseLoader.h"
#include "updates/UpdateVerdict.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>

#include <functional>
#include <string>

namespace pello {

/// Looks for a newer version, and says what it found. Closing it ends the search; it deletes itself
/// then. Main thread only.
class UpdateDialog final : public QDialog {
public:
    /// `showNotes` opens the release notes.
    UpdateDialog(NotesServices services, std::function<void()> showNotes);

    /// Brings the dialog to the front, and looks again unless it does so already.
    void present();

private:
    void look();
    void tell(const UpdateVerdict& verdict);
    QPushButton* addButton(const QString& text, std::function<void()> action);

    NotesServices services_;
    ReleaseLoader loader_;
    std::function<void()> showNotes_;
    std::string download_;
    bool isLooking_ = false;
    QLabel* title_;
    QLabel* message_;
    QDialogButtonBox* buttons_;
};

} // namespace pello
