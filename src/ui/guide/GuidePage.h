#pragma once

#include <QString>
#include <QVBoxLayout>
#include <QWidget>

namespace pello {

/// One step of the guide: a heading, what it is about, and what there is to do.
class GuidePage : public QWidget {
public:
    GuidePage(const QString& title, const QString& text, QWidget* parent);

    [[nodiscard]] const QString& title() const { return title_; }
    [[nodiscard]] const QString& text() const { return text_; }

    /// What has the focus first: what there is to do, or the page itself, to be read out.
    [[nodiscard]] virtual QWidget& firstControl() { return *this; }

    /// Reads anew what nobody tells about. Called whenever the page is shown.
    virtual void refresh() {}

protected:
    /// Where what there is to do goes, from top to bottom.
    [[nodiscard]] QVBoxLayout& body() { return *body_; }

    /// A text that wraps, in the colour of explanations.
    [[nodiscard]] static QWidget* newNote(const QString& text);

private:
    QString title_;
    QString text_;
    QVBoxLayout* body_;
};

} // namespace pello
