#pragma once

#include "platform/memory/MemoryCompositor.h"
#include "support/MemoryLauncher.h"
#include "ui/icons/IconLoader.h"
#include "ui/panel/PanelWindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <QString>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// The real panel over a launcher in memory, and what a user does with it.
class PanelFixture : public testing::Test {
protected:
    PanelFixture() { launcher.install({"Safari", "Safe Mode", "Terminal", "Text Editor"}); }

    /// Types `text` letter by letter.
    void type(std::string_view text) {
        for (const QChar letter : QString::fromUtf8(text.data(), qsizetype(text.size()))) {
            send(0, Qt::NoModifier, letter);
        }
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        send(key, modifiers, {});
    }

    [[nodiscard]] std::string text() { return panel.field().query(); }

    /// The titles in the list but for the last, the web search, with the selected one in brackets.
    [[nodiscard]] std::vector<std::string> rows() {
        std::vector<std::string> titles;
        const auto* model = panel.list().model();
        for (int row = 0; row < model->rowCount() - 1; ++row) {
            auto title = model->index(row, 0).data().toString().toStdString();
            const bool isSelected = panel.list().currentIndex().row() == row;
            titles.push_back(isSelected ? '[' + title + ']' : title);
        }
        return titles;
    }

    MemoryLauncher launcher;
    PelloController& controller = launcher.controller;
    MemoryCompositor compositor;
    IconLoader icons{launcher.loop, nullptr,
                     std::make_shared<SharedIconTheme>([] { return IconTheme({}, {}); })};
    ScriptFailureLog failures;
    PanelWindow panel{controller, icons, compositor, failures};

private:
    void send(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
        QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
        QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
        QApplication::sendEvent(&panel.field(), &down);
        QApplication::sendEvent(&panel.field(), &up);
    }
};

} // namespace pello
