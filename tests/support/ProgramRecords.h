#pragma once

#include "platform/linux/InotifyFolderWatcher.h"
#include "support/QtTurns.h"
#include "support/TemporaryFolder.h"

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace pello {

/// Shell scripts that note what they were given, and what they noted.
class ProgramRecords {
public:
    /// An executable `name` in `programs()` that notes its arguments and then what the shell
    /// commands `more` print, a line each.
    std::filesystem::path addProgram(const std::string& name, const std::string& more = "") const {
        const auto record = (folder_.path() / "records" / name).string();
        const auto file = folder_.write(
            "bin/" + name, "#!/bin/sh\n{ printf '%s\\n' \"$@\"\n" + more + "\n} > '" + record +
                               "'.$$.part\nmv '" + record + "'.$$.part '" + record + "'.$$\n");
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        return file;
    }

    [[nodiscard]] std::filesystem::path programs() const { return folder_.path() / "bin"; }

    /// What program `name` noted, one text for each time that it ran.
    [[nodiscard]] std::vector<std::string> notes(const std::string& name) const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(records_)) {
            const auto& path = entry.path();
            if (path.stem() == name && path.extension() != ".part") {
                std::ifstream stream(path);
                found.emplace_back(std::istreambuf_iterator<char>(stream),
                                   std::istreambuf_iterator<char>());
            }
        }
        return found;
    }

    /// Waits until `name` has run `times` times.
    std::vector<std::string> awaitNotes(const std::string& name, std::size_t times = 1) {
        turnQtUntil([&] { return notes(name).size() >= times; });
        return notes(name);
    }

private:
    TemporaryFolder folder_;
    std::filesystem::path records_ = folder_.makeFolder("records");
    InotifyFolderWatcher watcher_;
    Subscription watching_ = watcher_.watch(records_, [] {}); // wakes the event loop
};

} // namespace pello
