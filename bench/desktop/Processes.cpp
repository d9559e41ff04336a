#include "desktop/Processes.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cmath>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <spawn.h>
#include <sstream>
#include <unistd.h>

namespace pello::bench {
namespace {

constexpr double kKilobytesInMegabyte = 1024;

double milliseconds(const timespec& time) {
    return (static_cast<double>(time.tv_sec) * 1e3) + (static_cast<double>(time.tv_nsec) / 1e6);
}

double milliseconds(const timeval& time) {
    return (static_cast<double>(time.tv_sec) * 1e3) + (static_cast<double>(time.tv_usec) / 1e3);
}

std::filesystem::path folderOf(pid_t process) {
    return std::filesystem::path("/proc") / std::to_string(process);
}

std::string contents(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

/// The number after `key` in a file of lines "key: number".
double numberAfter(const std::string& text, const std::string& key) {
    const auto at = text.find('\n' + key);
    return at == std::string::npos ? 0 : std::strtod(text.c_str() + at + 1 + key.size(), nullptr);
}

/// Who started whom, by the starter.
std::multimap<pid_t, pid_t> children() {
    std::multimap<pid_t, pid_t> all;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const pid_t process = std::atoi(entry.path().filename().c_str());
        const std::string status = process > 0 ? contents(entry.path() / "stat") : "";
        std::istringstream afterName(status.substr(status.rfind(')') + 1));
        char state = 'Z';
        pid_t parent = 0;
        if (afterName >> state >> parent && state != 'Z') {
            all.emplace(parent, process);
        }
    }
    return all;
}

/// Splits at blanks outside of quotes.
std::vector<std::string> wordsOf(const std::string& command) {
    std::vector<std::string> words;
    std::istringstream rest(command);
    for (char first = 0; rest >> first;) {
        std::string word;
        if (first == '"' || first == '\'') {
            std::getline(rest, word, first);
        } else {
            rest.unget();
            rest >> word;
        }
        words.push_back(word);
    }
    return words;
}

void reap() {
    while (waitpid(-1, nullptr, WNOHANG) > 0) {
    }
}

/// Context switches of each thread.
std::map<std::string, double> switchesOf(const std::vector<pid_t>& processes) {
    std::map<std::string, double> switches;
    for (const pid_t process : processes) {
        std::error_code gone;
        for (const auto& thread :
             std::filesystem::directory_iterator(folderOf(process) / "task", gone)) {
            const std::string status = contents(thread.path() / "status");
            switches[thread.path().filename()] = numberAfter(status, "voluntary_ctxt_switches:") +
                                                 numberAfter(status, "nonvoluntary_ctxt_switches:");
        }
    }
    return switches;
}

} // namespace

double nowMs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return milliseconds(now);
}

void sleepMs(double duration) {
    const double seconds = std::floor(duration / 1e3);
    const timespec time{.tv_sec = static_cast<time_t>(seconds),
                        .tv_nsec = static_cast<long>((duration - seconds * 1e3) * 1e6)};
    nanosleep(&time, nullptr);
}

void adoptOrphans() {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

void launch(const std::string& command) {
    std::vector<std::string> words = wordsOf(command);
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    const char* log = std::getenv("BENCH_LOG");
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, log != nullptr ? log : "/dev/null",
                                     O_WRONLY | O_CREAT | O_APPEND, 0600);
    posix_spawn_file_actions_adddup2(&files, STDOUT_FILENO, STDERR_FILENO);
    pid_t process = -1;
    const int error =
        posix_spawnp(&process, arguments[0], &files, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    if (error != 0) {
        std::cerr << "measure: cannot run \"" << command << "\"\n";
        std::exit(2);
    }
}

std::vector<pid_t> startedProcesses() {
    reap();
    const auto all = children();
    std::vector<pid_t> found;
    std::vector<pid_t> open{getpid()};
    while (!open.empty()) {
        const auto [first, last] = all.equal_range(open.back());
        open.pop_back();
        for (auto child = first; child != last; ++child) {
            found.push_back(child->second);
            open.push_back(child->second);
        }
    }
    return found;
}

void endStartedProcesses() {
    for (const int signal : {SIGTERM, SIGTERM, SIGKILL}) {
        for (const pid_t process : startedProcesses()) {
            kill(process, signal);
        }
        for (int i = 0; i < 60 && !startedProcesses().empty(); ++i) {
            sleepMs(10);
        }
    }
}

double processorTime(const std::vector<pid_t>& processes) {
    double sum = 0;
    for (const pid_t process : processes) {
        clockid_t clock = 0;
        timespec time{};
        if (clock_getcpuclockid(process, &clock) == 0 && clock_gettime(clock, &time) == 0) {
            sum += milliseconds(time);
        }
    }
    return sum;
}

double processorTimeOfEnded() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

nlohmann::json memoryOf(const std::vector<pid_t>& processes) {
    double pss = 0;
    double anonymous = 0;
    for (const pid_t process : processes) {
        const std::string rollup = contents(folderOf(process) / "smaps_rollup");
        pss += numberAfter(rollup, "Pss:") / kKilobytesInMegabyte;
        anonymous += numberAfter(rollup, "Pss_Anon:") / kKilobytesInMegabyte;
    }
    return {{"pss_mb", pss}, {"pss_anon_mb", anonymous}};
}

nlohmann::json idleOver(int seconds, const std::vector<pid_t>& processes) {
    const auto before = switchesOf(processes);
    const double used = processorTime(processes);
    const double start = nowMs();
    sleepMs(seconds * 1e3);
    const double elapsed = (nowMs() - start) / 1e3;
    double switches = 0; // of threads that live at the end; one that came and went is missed
    for (const auto& [thread, count] : switchesOf(processes)) {
        const auto known = before.find(thread);
        switches += count - (known == before.end() ? 0 : known->second);
    }
    return {{"wakeups_per_s", switches / elapsed},
            {"cpu_ms_per_s", (processorTime(processes) - used) / elapsed}};
}

} // namespace pello::bench
