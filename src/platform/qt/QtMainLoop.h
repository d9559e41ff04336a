#pragma once

#include "platform/MainLoop.h"

#include <QObject>
#include <QThreadPool>

#include <atomic>

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

    /// Waits for background work that has begun and drops what has not, so that what such work
    /// borrowed may go.
    void endBackgroundWork();

    [[nodiscard]] Date now() const override;
    void post(std::function<void()> action) override;
    [[nodiscard]] Subscription after(std::chrono::milliseconds delay,
                                     std::function<void()> action) override;

protected:
    void runInBackground(std::function<void()> work, std::function<void()> done) override;

private:
    /// What crosses between threads, in an order that is seen from outside of Qt too: a tool that
    /// watches threads does not know how Qt hands things over, and would call each a race.
    class Crossing {
    public:
        void leave() { crossings_.fetch_add(1, std::memory_order_acq_rel); }
        void arrive() const { static_cast<void>(crossings_.load(std::memory_order_acquire)); }

    private:
        std::atomic<unsigned> crossings_ = 0;
    };
    class Job;

    /// What pending calls and timers belong to: they end with it.
    class Receiver final : public QObject {
    public:
        /// From any thread.
        void post(std::function<void()> action);
        bool event(QEvent* event) override;

        Crossing crossing;
    };

    Receiver receiver_;
    QThreadPool workers_;
};

} // namespace pello
