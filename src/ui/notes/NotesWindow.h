#pragma once

#include "ui/notes/NotesServices.h"
#include "ui/notes/NotesView.h"
#include "updates/ReleaseLoader.h"
#include "updates/UpdateVerdict.h"

#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QWidget>

namespace pello {

/// The notes of all releases. Reads their feed when it is opened, and again when the user asks for
/// it. Deletes itself when it is closed. Main thread only.
class NotesWindow final : public QWidget {
public:
    explicit NotesWindow(NotesServices services);

    /// Brings the window to the front and reads the feed, unless what it shows is good.
    void present();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QLayout* newHeader();
    [[nodiscard]] QWidget* newMessagePage();
    void load();
    void take(const ReleaseFeed::Contents& contents);
    void say(const QString& title, const QString& message);
    void follow(const QUrl& link) const;
    void takePalette();

    NotesServices services_;
    ReleaseLoader loader_;
    std::string download_;
    bool hasNotes_ = false;
    bool isTakingPalette_ = false;
    QLabel* standing_;
    QPushButton* downloadButton_;
    QLabel* title_;
    QLabel* message_;
    QPushButton* again_;
    NotesView* view_;
    QWidget* messagePage_;
    QStackedWidget* pages_;
};

} // namespace pello
