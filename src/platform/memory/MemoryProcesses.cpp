#include "platform/memory/MemoryProcesses.h"

namespace pello {
namespace {

bool isRunning(const MemoryProcesses::Process& process) {
    return static_cast<bool>(process.ended);
}

} // namespace

Processes::Handle MemoryProcesses::start(const Program& program, Ended ended) {
    const Handle process = ++newest_;
    started.emplace(process, Process{.program = program, .ended = std::move(ended)});
    if (const auto known = programs.find(program.file); known == programs.end()) {
        endLater(process, {.end = ProcessResult::Failed{"the file does not exist"}});
    } else if (const auto& result = known->second) {
        endLater(process, *result);
    }
    return process;
}

void MemoryProcesses::terminate(Handle process) {
    Process& asked = started.at(process);
    if (!isRunning(asked)) {
        return;
    }
    ++asked.terminations;
    if (!stubborn.contains(asked.program.file)) {
        endLater(process, {.end = ProcessResult::Signalled{.number = 15, .name = "SIGTERM"}});
    }
}

void MemoryProcesses::kill(Handle process) {
    Process& asked = started.at(process);
    if (isRunning(asked)) {
        ++asked.kills;
        endLater(process, {.end = ProcessResult::Signalled{.number = 9, .name = "SIGKILL"}});
    }
}

void MemoryProcesses::end(Handle process, const ProcessResult& result) {
    if (const Ended ended = std::exchange(started.at(process).ended, nullptr)) {
        ended(result);
    }
}

void MemoryProcesses::endLater(Handle process, ProcessResult result) {
    loop_.post([this, weakAlive = std::weak_ptr(alive_), process, result = std::move(result)] {
        if (weakAlive.lock()) {
            end(process, result);
        }
    });
}

} // namespace pello
