#pragma once

#include "updates/Release.h"

#include <QTextBrowser>

#include <optional>
#include <vector>

namespace pello {

/// Releases as cards, the newest on top, with the place of the installed version among them.
///
/// Shows text alone: nothing is ever loaded, and links are followed by nobody but the listeners of
/// `anchorClicked`, which hear of http and https only.
class NotesView final : public QTextBrowser {
public:
    NotesView();

    /// Shows `releases`, the newest first.
    void show(const std::vector<Release>& releases, const ReleaseVersion& installed);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// A word on a ground of its own, behind a version.
    struct Badge {
        int position = 0;
        int length = 0;
        QColor ground;
    };

    void write();
    void writeReleases(QTextCursor& cursor, const ReleaseVersion& installed);
    void writeRelease(QTextCursor& cursor, const Release& release, const ReleaseVersion& installed);
    static void writeNotes(QTextCursor& cursor, const QString& notes);
    void writeBadge(QTextCursor& cursor, const QString& word, const QColor& ground,
                    const QColor& text);
    void writeYourPlace(QTextCursor& cursor, const ReleaseVersion& installed);
    [[nodiscard]] QRectF areaOf(const Badge& badge) const;

    std::vector<Release> releases_;
    std::optional<ReleaseVersion> installed_;
    std::vector<QTextFrame*> cards_;
    std::vector<Badge> badges_;
};

} // namespace pello
