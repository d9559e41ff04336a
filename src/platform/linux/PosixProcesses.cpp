#include "platform/linux/PosixProcesses.h"

#include "platform/linux/KeeperReport.h"
#include "platform/linux/ProcessKeeper.h"
#include "platform/linux/StartFailure.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace pello {
namespace {

ProcessPlan planOf(const Processes::Program& program) {
    ProcessPlan plan{.program = program.file,
                     .arguments = program.arguments,
                     .environment = {program.environment},
                     .folder = program.folder};
    plan.arguments.insert(plan.arguments.begin(),
                          program.calledAs.empty() ? program.file.string() : program.calledAs);
    return plan;
}

/// Whether the system would see the end of a text before its end.
bool hasZero(const ProcessPlan& plan) {
    const auto isCut = [](std::string_view text) {
        return text.find('\0') != std::string_view::npos;
    };
    return isCut(plan.program.native()) || isCut(plan.folder.native()) ||
           std::ranges::any_of(plan.arguments, isCut) ||
           std::ranges::any_of(plan.environment.variables, [&](const auto& variable) {
               return isCut(variable.first) || isCut(variable.second);
           });
}

std::string signalName(int number) {
    const char* name = ::sigabbrev_np(number);
    return name != nullptr ? std::string("SIG") + name : "signal " + std::to_string(number);
}

decltype(ProcessResult::end) endOf(const KeeperReport& report, const ProcessPlan& plan) {
    switch (report.outcome) {
    case KeeperReport::Outcome::exited:
        return ProcessResult::Exited{report.value};
    case KeeperReport::Outcome::signalled:
        return ProcessResult::Signalled{.number = report.value, .name = signalName(report.value)};
    case KeeperReport::Outcome::lost:
        return ProcessResult::Unknown{"the system did not tell"};
    default:
        return ProcessResult::Failed{whyNotStarted(plan, report.outcome, report.value)};
    }
}

/// Takes a report off the beginning of what a keeper sent, if it is there completely.
std::optional<KeeperReport> takeReport(std::string_view& sent) {
    KeeperReport report;
    if (sent.size() < sizeof report) {
        return std::nullopt;
    }
    std::memcpy(&report, sent.data(), sizeof report);
    sent.remove_prefix(sizeof report);
    return report;
}

/// What a keeper sent until its end.
ProcessResult resultOf(std::string_view sent, const ProcessPlan& plan) {
    auto report = takeReport(sent);
    const bool hasBegun = report && report->outcome == KeeperReport::Outcome::starting;
    if (hasBegun) {
        report = takeReport(sent);
    }
    if (report && sent.size() == report->standardLength + report->errorLength) {
        return {.end = endOf(*report, plan),
                .standardOutput = std::string(sent.substr(0, report->standardLength)),
                .errorOutput = std::string(sent.substr(report->standardLength))};
    }
    const std::string reason = "the process that watched over it has gone";
    return hasBegun ? ProcessResult{.end = ProcessResult::Unknown{reason}}
                    : ProcessResult{.end = ProcessResult::Failed{reason}};
}

} // namespace

/// What answers that are under way belong to: they end with it.
struct PosixProcesses::Context {
    QObject receiver;
};

/// The line to one keeper.
class PosixProcesses::Line {
public:
    using Finished = std::function<void(const ProcessResult&)>;

    Line(FileDescriptor descriptor, ProcessPlan plan, Finished finished)
        : descriptor_(std::move(descriptor)),
          plan_(std::move(plan)),
          finished_(std::move(finished)),
          notifier_(new QSocketNotifier(descriptor_.number(), QSocketNotifier::Read)) {
        QObject::connect(notifier_, &QSocketNotifier::activated, notifier_, [this] { receive(); });
    }
    ~Line() {
        notifier_->setEnabled(false);
        notifier_->deleteLater(); // it may be the one that calls
        notifier_->disconnect();
    }
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    void send(char request) const {
        ::send(descriptor_.number(), &request, 1, MSG_NOSIGNAL | MSG_DONTWAIT);
    }

private:
    void receive() {
        std::array<char, 65536> bytes{};
        const ssize_t length = ::read(descriptor_.number(), bytes.data(), bytes.size());
        if (length > 0) {
            sent_.append(bytes.data(), static_cast<std::size_t>(length));
        } else if (length == 0 || (errno != EAGAIN && errno != EINTR)) {
            const auto finished = std::move(finished_);
            finished(resultOf(sent_, plan_)); // this object goes
        }
    }

    FileDescriptor descriptor_;
    ProcessPlan plan_;
    Finished finished_;
    QSocketNotifier* notifier_;
    std::string sent_;
};

PosixProcesses::PosixProcesses() : context_(std::make_unique<Context>()) {}
PosixProcesses::~PosixProcesses() = default;

Processes::Handle PosixProcesses::start(const Program& program, Ended ended) {
    const Handle process = ++newest_;
    ProcessPlan plan = planOf(program);
    if (hasZero(plan)) {
        failLater(std::move(ended), "its argument contains a zero byte, which none can");
        return process;
    }
    KeptProcess kept = startKept(plan);
    if (!kept.line) {
        failLater(std::move(ended),
                  whyNotStarted(plan, KeeperReport::Outcome::noProcess, kept.error));
        return process;
    }
    auto finished = [this, process, ended = std::move(ended)](const ProcessResult& result) {
        const auto line = lines_.extract(process); // lives until this returns
        ended(result);
    };
    lines_.emplace(process, std::make_unique<Line>(std::move(kept.line), std::move(plan),
                                                   std::move(finished)));
    return process;
}

void PosixProcesses::terminate(Handle process) {
    request(process, static_cast<char>(KeeperRequest::terminate));
}

void PosixProcesses::kill(Handle process) {
    request(process, static_cast<char>(KeeperRequest::kill));
}

void PosixProcesses::request(Handle process, char what) {
    if (const auto line = lines_.find(process); line != lines_.end()) {
        line->second->send(what);
    }
}

void PosixProcesses::failLater(Ended ended, std::string reason) {
    QTimer::singleShot(0, &context_->receiver,
                       [ended = std::move(ended), reason = std::move(reason)] {
                           ended({.end = ProcessResult::Failed{reason}});
                       });
}

} // namespace pello
