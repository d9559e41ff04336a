#pragma once

#include "platform/MainLoop.h"

#include <QObject>
#include <QThreadPool>

namespace pello {

/// The main loop of a program that runs Qt's event loop.
///
/// Made on the thread that runs the QCoreApplication. Destroying it ends every pending timer, post
/// and completion; it waits for background work that has begun and drops what has not.
class QtMainLoop final : public MainLoop {
public:
    QtMainLoop() = default;
    ~QtMainLoop() override;
    QtMainLoop(const QtMainLoop&) = delete;
    QtMainLoop& operator=(const QtMainLoop&) = delete;

    [[nodiscard]] Date now() const override;
    void post(std::function<void()> action) override;
    [[nodiscard]] Subscription after(std::chrono::milliseconds delay,
                                     std::function<void()> action) override;

protected:
    void runInBackground(std::function<void()> work, std::function<void()> done) override;

private:
    /// What pending calls and timers belong to: they end with it.
    class Receiver final : public QObject {
    public:
        bool event(QEvent* event) override;
    };

    Receiver receiver_;
    QThreadPool workers_;
};

} // namespace pello
