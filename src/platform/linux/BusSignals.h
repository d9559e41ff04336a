#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <vector>

struct sd_bus;
struct sd_bus_message;

namespace pello {

/// Listens to the signals of services on a message bus, which need not run. Nothing is ever heard
/// from a bus that does not exist, and nothing more from one that ended. Never waits for the bus.
/// Needs Qt's event loop; main thread only.
class BusSignals {
public:
    /// What to listen for; null stands for any.
    struct Match {
        const char* sender = nullptr;
        const char* path = nullptr;
        const char* interface = nullptr;
        const char* member = nullptr;
    };
    using Heard = std::function<void(sd_bus_message* message)>;

    /// The bus that `open` opens: `sd_bus_open_system` or `sd_bus_open_user`.
    explicit BusSignals(int (*open)(sd_bus** bus));
    ~BusSignals();
    BusSignals(const BusSignals&) = delete;
    BusSignals& operator=(const BusSignals&) = delete;

    /// Calls `heard` at each signal that matches, as long as this object lives. `heard` may read
    /// the message and must not end this object.
    void listen(const Match& match, Heard heard);

private:
    struct Close {
        void operator()(sd_bus* bus) const;
    };

    void process();
    void awaitMore();

    std::unique_ptr<sd_bus, Close> bus_;
    std::vector<std::unique_ptr<Heard>> heard_;
    std::unique_ptr<QSocketNotifier> readable_;
    std::unique_ptr<QSocketNotifier> writable_;
};

} // namespace pello
