#include "platform/linux/BusSignals.h"

#include <systemd/sd-bus.h>

#include <poll.h>
#include <utility>

namespace pello {
namespace {

int call(sd_bus_message* message, void* heard, sd_bus_error* /*error*/) {
    (*static_cast<BusSignals::Heard*>(heard))(message);
    return 0;
}

} // namespace

void BusSignals::Close::operator()(sd_bus* bus) const {
    sd_bus_close_unref(bus);
}

BusSignals::BusSignals(int (*open)(sd_bus** bus)) {
    sd_bus* bus = nullptr;
    if (open(&bus) < 0) {
        return;
    }
    bus_.reset(bus);
    const int descriptor = sd_bus_get_fd(bus);
    for (auto [notifier, kind] : {std::pair(&readable_, QSocketNotifier::Read),
                                  std::pair(&writable_, QSocketNotifier::Write)}) {
        *notifier = std::make_unique<QSocketNotifier>(descriptor, kind);
        QObject::connect(notifier->get(), &QSocketNotifier::activated, [this] { process(); });
    }
}

BusSignals::~BusSignals() = default;

void BusSignals::listen(const Match& match, Heard heard) {
    if (!bus_) {
        return;
    }
    heard_.push_back(std::make_unique<Heard>(std::move(heard)));
    sd_bus_match_signal_async(bus_.get(), nullptr, match.sender, match.path, match.interface,
                              match.member, call, nullptr, heard_.back().get());
    awaitMore();
}

void BusSignals::process() {
    int result = 1;
    while (result > 0) {
        result = sd_bus_process(bus_.get(), nullptr);
    }
    if (result < 0) { // the bus ended
        readable_->setEnabled(false);
        writable_->setEnabled(false);
        return;
    }
    awaitMore();
}

void BusSignals::awaitMore() {
    const int events = sd_bus_get_events(bus_.get());
    writable_->setEnabled(events >= 0 && (events & POLLOUT) != 0);
}

} // namespace pello
