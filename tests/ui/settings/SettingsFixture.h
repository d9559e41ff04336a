#pragma once

#include "platform/memory/MemoryKeyboardLayout.h"
#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryPreferenceDomains.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "ui/settings/SettingsWindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace pello {

/// The settings of a user in memory, and services that remember what was asked of them.
class SettingsFixture : public testing::Test {
protected:
    /// Keys are numbered by the desktop as they are by virtual codes.
    SettingsServices services() {
        return {.settings = settings,
                .layout = layout,
                .preferences = preferences,
                .virtualKey = [](std::uint32_t code) { return static_cast<std::uint16_t>(code); },
                .suspendShortcuts =
                    [this] {
                        ++suspended;
                        return Subscription([this] { --suspended; });
                    },
                .comboProblem = [this](const KeyCombo& combo) -> std::optional<std::string> {
                    return combo == taken ? std::optional<std::string>("Another program has it.")
                                          : std::nullopt;
                },
                .checkHyperMapping = [this](const auto& done) { done(isHyperActive); },
                .historyCount = [this] { return history; },
                .clearHistory = [this] { history = 0; },
                .found = [this](SettingsSource) { return std::optional(found); },
                .foundChanged = &foundChanged};
    }

    static void press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                      const QString& text = {}, quint32 code = 0) {
        QKeyEvent down(QEvent::KeyPress, key, modifiers, code, 0, 0, text);
        QApplication::sendEvent(&widget, &down);
        QKeyEvent up(QEvent::KeyRelease, key, modifiers, code, 0, 0, text);
        QApplication::sendEvent(&widget, &up);
    }

    /// The parts of `parent` that are of one of our own classes, in order.
    template <class Part>
    static std::vector<Part*> partsOf(const QWidget& parent) {
        std::vector<Part*> parts;
        for (QWidget* widget : parent.findChildren<QWidget*>()) {
            if (auto* part = dynamic_cast<Part*>(widget)) {
                parts.push_back(part);
            }
        }
        return parts;
    }

    MemoryUserDefaults defaults;
    MemoryLoginItem loginItem;
    PelloSettings settings{defaults, loginItem};
    MemoryKeyboardLayout layout;
    MemoryPreferenceDomains preferences;
    std::optional<KeyCombo> taken;
    int suspended = 0;
    bool isHyperActive = true;
    std::size_t history = 3;
    std::size_t found = 5;
    Signal<> foundChanged;
};

} // namespace pello
