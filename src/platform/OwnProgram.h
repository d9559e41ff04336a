#pragma once

#include <functional>
#include <optional>
#include <string>

namespace pello {

/// This program as the system runs it. Main thread only.
class OwnProgram {
public:
    /// Empty on success, else why it failed, for the log.
    using Opened = std::function<void(const std::optional<std::string>& error)>;

    virtual ~OwnProgram() = default;

    /// The name by which the system keeps the program's permissions.
    [[nodiscard]] virtual std::string identifier() const = 0;

    /// Starts a second instance beside this one; `opened` is called in a later turn of the loop.
    virtual void openNewInstance(Opened opened) = 0;

    /// Ends this instance in an orderly way, as if the user had quit it.
    virtual void terminate() = 0;
};

} // namespace pello
