#include "platform/qt/QtMainLoop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QRunnable>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <memory>

namespace pello {

namespace {

/// A posted action on its way to the main thread.
class CallEvent final : public QEvent {
public:
    explicit CallEvent(std::function<void()> action) : QEvent(kType), action_(std::move(action)) {}

    void call() const { action_(); }

    static inline const auto kType = QEvent::Type(QEvent::registerEventType());

private:
    std::function<void()> action_;
};

} // namespace

/// One piece of background work. Both functions are destroyed where they were called, so that what
/// a completion captured never dies on a worker.
class QtMainLoop::Job final : public QRunnable {
public:
    Job(Receiver& receiver, std::function<void()> work, std::function<void()> done)
        : receiver_(receiver), work_(std::move(work)), done_(std::move(done)) {
        receiver_.crossing.leave();
    }

    void run() override {
        receiver_.crossing.arrive();
        work_();
        work_ = nullptr;
        receiver_.post(std::move(done_));
    }

private:
    Receiver& receiver_;
    std::function<void()> work_;
    std::function<void()> done_;
};

void QtMainLoop::Receiver::post(std::function<void()> action) {
    auto* event = new CallEvent(std::move(action));
    crossing.leave();
    QCoreApplication::postEvent(this, event);
}

bool QtMainLoop::Receiver::event(QEvent* event) {
    crossing.arrive();
    if (event->type() != CallEvent::kType) {
        return QObject::event(event);
    }
    static_cast<const CallEvent*>(event)->call();
    return true;
}

QtMainLoop::~QtMainLoop() {
    endBackgroundWork();
}

void QtMainLoop::endBackgroundWork() {
    workers_.clear();
    workers_.waitForDone();
    receiver_.crossing.arrive();
}

Date QtMainLoop::now() const {
    return Date::ofSystemClock();
}

void QtMainLoop::post(std::function<void()> action) {
    receiver_.post(std::move(action));
}

Subscription QtMainLoop::after(std::chrono::milliseconds delay, std::function<void()> action) {
    auto pending = std::make_shared<std::function<void()>>(std::move(action));
    auto* timer = new QTimer(&receiver_);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setSingleShot(true);
    timer->callOnTimeout(&receiver_, [timer, pending] {
        timer->deleteLater();
        if (const auto due = std::exchange(*pending, nullptr)) {
            due();
        }
    });
    timer->start(std::max(delay, std::chrono::milliseconds(0)));
    return Subscription([pending, alive = QPointer(timer)] {
        *pending = nullptr;
        if (alive) {
            alive->stop();
            alive->deleteLater();
        }
    });
}

void QtMainLoop::runInBackground(std::function<void()> work, std::function<void()> done) {
    workers_.start(new Job(receiver_, std::move(work), std::move(done)));
}

} // namespace pello
