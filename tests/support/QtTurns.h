#pragma once

#include <QCoreApplication>
#include <QTimer>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>

namespace pello {

/// The application object that Qt's event loop needs, made once.
inline void ensureQtApplication() {
    static int argc = 1;
    static std::string name = "test";
    static std::array<char*, 2> arguments = {name.data(), nullptr};
    static const QCoreApplication application(argc, arguments.data());
}

/// A fixture whose members may use Qt's event loop.
class QtTest : public testing::Test {
protected:
    QtTest() { ensureQtApplication(); }
};

/// Waits for events until `happened`; fails the test when nothing of the kind comes.
inline void turnQtUntil(const std::function<bool()>& happened) {
    ensureQtApplication();
    bool isOver = false;
    QTimer limit;
    limit.callOnTimeout([&] { isOver = true; });
    limit.start(std::chrono::seconds(30));
    while (!happened() && !isOver) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_FALSE(isOver) << "what was waited for did not happen";
}

} // namespace pello
