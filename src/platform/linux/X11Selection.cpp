#include "platform/linux/X11Selection.h"

#include "platform/linux/X11Connection.h"
#include "platform/linux/X11Transfer.h"

#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <list>
#include <optional>
#include <poll.h>
#include <utility>

namespace pello {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// Clients that hang may never come back for theirs.
constexpr std::size_t kMostTransfers = 16;

milliseconds until(steady_clock::time_point time) {
    return std::max(std::chrono::ceil<milliseconds>(time - steady_clock::now()), milliseconds(0));
}

} // namespace

/// A connection, and what is read over it.
///
/// Simple clients know of one transfer at a time and mix up the pieces of several. So one begins
/// when the one before is over or has come to a standstill, even when nobody waits for that any
/// more.
class X11Selection::Client {
public:
    /// `connection` must not be broken.
    explicit Client(std::unique_ptr<X11Connection> connection);
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    [[nodiscard]] bool isBroken() const { return connection_->isBroken(); }

    /// Begins to read, and gives the reading's number. `action` is called once, when events are
    /// taken or a limit is reached.
    int begin(const Limits& limits, Action action);

    /// Goes on with all transfers; waits for events before, until `end` if need be.
    void takeEvents(steady_clock::time_point end);

    /// Ends the waiting for the reading of that number.
    void giveUp(int number);

private:
    /// A transfer that somebody waits for, or nobody any more.
    struct Reading {
        Reading(int itsNumber, const Limits& wanted, Action waiting)
            : number(itsNumber), limits(wanted), action(std::move(waiting)) {}

        int number;
        Limits limits;
        Action action; // empty once it was called
        steady_clock::time_point end = steady_clock::now() + limits.whole;
        std::optional<X11Transfer> transfer; // none before its turn
        QTimer patience;
        steady_clock::time_point patienceEnd;

        void awaitMore();
        void tell(std::optional<std::string> text);
        [[nodiscard]] bool isOnItsWay() const;
    };

    void takePresentEvents();
    void take(const xcb_generic_event_t& event);
    void startNext();
    void forgetOldest();

    std::unique_ptr<X11Connection> connection_;
    X11Transfer::Atoms atoms_;
    std::list<Reading> readings_;
    QSocketNotifier notifier_;
    int newest_ = 0;
};

/// Waits for a sign of life, from now on.
void X11Selection::Client::Reading::awaitMore() {
    const milliseconds left = until(end);
    const milliseconds time = transfer ? std::min(limits.silence, left) : left;
    patienceEnd = steady_clock::now() + time;
    patience.start(time);
}

void X11Selection::Client::Reading::tell(std::optional<std::string> text) {
    if (const Action waiting = std::exchange(action, {})) {
        waiting(std::move(text));
    }
}

bool X11Selection::Client::Reading::isOnItsWay() const {
    return transfer && !transfer->isOver() && patience.isActive() &&
           steady_clock::now() < patienceEnd;
}

X11Selection::Client::Client(std::unique_ptr<X11Connection> connection)
    : connection_(std::move(connection)),
      atoms_(connection_->get()),
      notifier_(xcb_get_file_descriptor(connection_->get()), QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_,
                     [this] { takePresentEvents(); });
}

X11Selection::Client::~Client() = default;

int X11Selection::Client::begin(const Limits& limits, Action action) {
    forgetOldest();
    const int number = ++newest_;
    Reading& reading = readings_.emplace_back(number, limits, std::move(action));
    reading.patience.setSingleShot(true);
    reading.patience.callOnTimeout([this, &reading] {
        startNext();
        reading.tell(std::nullopt);
    });
    reading.awaitMore();
    startNext();
    return number;
}

void X11Selection::Client::takeEvents(steady_clock::time_point end) {
    pollfd waiting{.fd = xcb_get_file_descriptor(connection_->get()), .events = POLLIN};
    ::poll(&waiting, 1, static_cast<int>(until(end).count()));
    takePresentEvents();
}

void X11Selection::Client::takePresentEvents() {
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_->get())}) {
        take(*event);
    }
    if (!isBroken()) {
        return;
    }
    notifier_.setEnabled(false);
    auto lost = std::exchange(readings_, {});
    for (Reading& reading : lost) {
        reading.tell(std::nullopt);
    }
}

void X11Selection::Client::take(const xcb_generic_event_t& event) {
    const auto reading = std::ranges::find_if(
        readings_, [&](Reading& each) { return each.transfer && each.transfer->take(event); });
    if (reading == readings_.end()) {
        return;
    }
    reading->awaitMore();
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access): only one that is there takes an event
    X11Transfer& transfer = *reading->transfer;
    const X11Transfer::State state = transfer.state();
    std::list<Reading> ended;
    if (transfer.isOver()) {
        ended.splice(ended.begin(), readings_, reading);
        startNext();
    }
    if (state == X11Transfer::State::tooLong) {
        reading->tell(std::nullopt);
    } else if (state != X11Transfer::State::underWay) {
        reading->tell(transfer.takeText());
    }
}

void X11Selection::Client::startNext() {
    if (std::ranges::any_of(readings_, &Reading::isOnItsWay)) {
        return;
    }
    const auto next = std::ranges::find_if(
        readings_, [](const Reading& each) { return !each.transfer && each.action; });
    if (next != readings_.end()) {
        next->transfer.emplace(connection_->get(), atoms_, next->limits.bytes);
        next->awaitMore();
    }
}

void X11Selection::Client::giveUp(int number) {
    const auto reading = std::ranges::find(readings_, number, &Reading::number);
    if (reading != readings_.end()) {
        reading->tell(std::nullopt);
    }
}

void X11Selection::Client::forgetOldest() {
    std::erase_if(readings_, [](const Reading& each) { return !each.transfer && !each.action; });
    while (readings_.size() >= kMostTransfers) {
        readings_.front().tell(std::nullopt);
        readings_.pop_front();
    }
}

X11Selection::X11Selection() = default;
X11Selection::~X11Selection() = default;

/// The client, made where there is none that works; null without a server.
X11Selection::Client* X11Selection::client() {
    if (!client_ || client_->isBroken()) {
        client_.reset();
        auto connection = std::make_unique<X11Connection>();
        if (!connection->isBroken()) {
            client_ = std::make_unique<Client>(std::move(connection));
        }
    }
    return client_.get();
}

void X11Selection::read(const Limits& limits, Action action) {
    if (Client* const reader = client()) {
        reader->begin(limits, std::move(action));
    } else {
        action(std::nullopt);
    }
}

std::optional<std::string> X11Selection::wait(const Limits& limits) {
    Client* const reader = client();
    std::optional<std::string> found;
    bool isOver = reader == nullptr;
    if (isOver) {
        return found;
    }
    const auto end = steady_clock::now() + limits.whole;
    const auto reading = reader->begin(limits, [&](std::optional<std::string> text) {
        found = std::move(text);
        isOver = true;
    });
    while (!isOver && steady_clock::now() < end) {
        reader->takeEvents(end);
    }
    if (!isOver) {
        reader->giveUp(reading);
    }
    return found;
}

} // namespace pello
