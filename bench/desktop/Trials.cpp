#include "desktop/Trials.h"

#include "desktop/Processes.h"

#include <iostream>

namespace pello::bench {
namespace {

constexpr int kWarmups = 2;
constexpr double kTimeout = 10'000;
constexpr double kLongestStart = 30'000;
constexpr double kIdleFor = 1'500; // ms below `kIdleShare` of a core: now it is idle
constexpr double kIdleShare = 0.01;

/// Adds the figures of one trial, unless the window did not come.
void note(nlohmann::json& figures, const Sighting& seen, double processorMs) {
    if (!seen.mapped || !seen.complete) {
        figures["failed"] = figures.value("failed", 0) + 1;
        return;
    }
    figures["mapped_ms"].push_back(*seen.mapped);
    figures["complete_ms"].push_back(*seen.complete);
    figures["cpu_ms"].push_back(processorMs);
}

} // namespace

Trials::Trials(const Target& target, Screen& screen) : target_(target), screen_(screen) {}

nlohmann::json Trials::run() {
    Json figures = Json::object();
    if (target_.has("cold")) {
        figures["cold"] = cold();
    }
    if (target_.isResident()) {
        figures["daemon_start"] = startDaemon();
        if (target_.has("warm")) {
            figures["warm"] = warm();
        }
    }
    if (target_.has("key")) {
        figures["key"] = keys();
    }
    addRest(figures);
    end();
    return figures;
}

nlohmann::json Trials::cold() {
    Json figures = Json::object();
    for (int i = -kWarmups; i < target_.trials; ++i) {
        end();
        pause();
        const double since = nowMs();
        launch(target_.start);
        const Sighting seen = screen_.follow(since, Screen::Until::mapped, target_.quiet, kTimeout);
        if (i >= 0) {
            note(figures, seen, processorTime(startedProcesses()));
        }
        pause();
        hide(i >= 0 ? &figures : nullptr);
    }
    end();
    return figures;
}

nlohmann::json Trials::startDaemon() {
    end();
    screen_.follow(nowMs(), Screen::Until::quiet, 100, 2'000);
    launch(target_.daemon);
    const double processorMs = waitUntilIdle(kLongestStart);
    hide();
    return {{"cpu_ms", processorMs}};
}

nlohmann::json Trials::warm() {
    Json figures = Json::object();
    for (int i = -kWarmups; i < target_.trials; ++i) {
        pause();
        const auto processes = startedProcesses();
        const double before = processorTime(processes) + processorTimeOfEnded();
        double since = 0;
        const Sighting seen = summon(since);
        const auto after = startedProcesses();
        if (i >= 0) {
            note(figures, seen, processorTime(after) + processorTimeOfEnded() - before);
        }
        pause();
        if (!hide(i >= 0 ? &figures : nullptr)) {
            std::cerr << "measure: the window cannot be hidden\n";
            break;
        }
    }
    return figures;
}

nlohmann::json Trials::keys() {
    Json figures = Json::object();
    int left = target_.keyTrials;
    for (int round = 0; left > 0 && round < target_.keyTrials; ++round) {
        if (!screen_.hasWindow()) {
            pause();
            if (!show()) {
                figures["failed"] = figures.value("failed", 0) + 1;
                continue;
            }
        }
        screen_.follow(nowMs(), Screen::Until::quiet, target_.quiet, 3'000);
        typeOnce(target_.queries[static_cast<std::size_t>(round) % target_.queries.size()], left,
                 figures);
    }
    return figures;
}

/// Types the query, letter by letter, and removes it again.
void Trials::typeOnce(const std::string& query, int& left, Json& figures) {
    for (const char letter : query) {
        if (left-- <= 0 || !screen_.hasWindow()) {
            return;
        }
        pause();
        const auto processes = startedProcesses();
        const double before = processorTime(processes);
        const double since = nowMs();
        screen_.press(std::string(1, letter));
        const Sighting seen = screen_.follow(since, Screen::Until::changed, target_.quiet, 4'000);
        if (!seen.complete || !seen.firstChange) {
            figures["failed"] = figures.value("failed", 0) + 1;
            continue;
        }
        figures["first_change_ms"].push_back(*seen.firstChange);
        figures["complete_ms"].push_back(*seen.complete);
        figures["cpu_ms"].push_back(processorTime(processes) - before);
    }
    for (std::size_t i = 0; i < query.size() && screen_.hasWindow(); ++i) {
        screen_.press("BackSpace");
        screen_.follow(nowMs(), Screen::Until::quiet, 80, 1'500);
    }
}

/// Memory and what it does while nobody asks it anything.
void Trials::addRest(Json& figures) {
    if (!target_.isResident() || (!target_.has("memory") && !target_.has("idle"))) {
        return;
    }
    hide();
    waitUntilIdle(5'000);
    if (target_.has("memory")) {
        figures["mem_idle_after_use"] = memoryOf(startedProcesses());
    }
    if (target_.has("idle")) {
        figures["idle_hidden"] = idleOver(target_.idleSeconds, startedProcesses());
    }
}

Sighting Trials::summon(double& since) {
    since = nowMs();
    if (!target_.summonKey.empty()) {
        screen_.press(target_.summonKey);
    } else {
        launch(target_.summon.empty() ? target_.start : target_.summon);
    }
    return screen_.follow(since, Screen::Until::mapped, target_.quiet, kTimeout);
}

bool Trials::show() {
    double since = 0;
    return summon(since).mapped.has_value();
}

/// Presses Escape until the window is gone. The figures get the time where the first press did it.
bool Trials::hide(Json* figures) {
    for (int i = 0; i < target_.mostDismissals && screen_.hasWindow(); ++i) {
        const double since = nowMs();
        screen_.press("Escape");
        const Sighting seen = screen_.follow(since, Screen::Until::unmapped, 60, 700);
        if (figures != nullptr && i == 0 && seen.unmapped) {
            (*figures)["hide_ms"].push_back(*seen.unmapped);
        }
    }
    return !screen_.hasWindow();
}

void Trials::end() {
    endStartedProcesses();
    screen_.forgetWindow();
}

void Trials::pause() {
    const double duration = std::uniform_real_distribution<>(120, 320)(random_);
    const double end = nowMs() + duration;
    screen_.follow(nowMs(), Screen::Until::quiet, duration, duration + 1);
    if (nowMs() < end) {
        sleepMs(end - nowMs());
    }
}

/// Waits until the launcher has next to nothing to do, and returns the processor time it has used.
double Trials::waitUntilIdle(double most) {
    constexpr double kStep = 250;
    const double start = nowMs();
    double lastBusy = start;
    double used = processorTime(startedProcesses());
    while (nowMs() - start < most && nowMs() - lastBusy < kIdleFor) {
        screen_.follow(nowMs(), Screen::Until::quiet, kStep, kStep + 1);
        const double now = processorTime(startedProcesses());
        if (now - used > kStep * kIdleShare) {
            lastBusy = nowMs();
        }
        used = now;
    }
    return used;
}

} // namespace pello::bench
