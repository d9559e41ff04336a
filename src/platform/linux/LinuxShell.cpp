#include "platform/linux/LinuxShell.h"

#include <QProcess>
#include <QStringList>

#include <chrono>
#include <utility>

namespace pello {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPatience{30'000};
/// What a shell says of a command that could not be run, or had to be ended.
constexpr int kNotRun = 127;

Shell::Result resultOf(const std::string& path, const std::vector<std::string>& arguments) {
    QStringList list;
    for (const std::string& argument : arguments) {
        list << QString::fromStdString(argument);
    }
    QProcess tool;
    tool.setStandardInputFile(QProcess::nullDevice());
    tool.setStandardErrorFile(QProcess::nullDevice());
    tool.start(QString::fromStdString(path), list, QIODevice::ReadOnly);
    const bool hasEnded = tool.waitForFinished(static_cast<int>(kPatience.count()));
    if (!hasEnded || tool.exitStatus() != QProcess::NormalExit) {
        tool.kill();
        tool.waitForFinished();
        return {.status = kNotRun, .output = {}};
    }
    const QString output = QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
    return {.status = tool.exitCode(), .output = output.toStdString()};
}

} // namespace

void LinuxShell::run(const std::string& path, const std::vector<std::string>& arguments,
                     Completion completion) {
    if (const auto standIn = standIns_.find(path); standIn != standIns_.end()) {
        loop_.post([result = standIn->second(arguments), completion = std::move(completion),
                    alive = std::weak_ptr(alive_)] {
            if (!alive.expired()) {
                completion(result);
            }
        });
        return;
    }
    loop_.background(
        [path, arguments] { return resultOf(path, arguments); },
        [completion = std::move(completion), alive = std::weak_ptr(alive_)](const Result& result) {
            if (!alive.expired()) {
                completion(result);
            }
        });
}

Shell::Result LinuxShell::runSynchronously(const std::string& path,
                                           const std::vector<std::string>& arguments) {
    const auto standIn = standIns_.find(path);
    return standIn != standIns_.end() ? standIn->second(arguments) : resultOf(path, arguments);
}

} // namespace pello
