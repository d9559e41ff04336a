#pragma once

#include "platform/LoginItem.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pello {

/// The login item as a desktop entry in the user's autostart folder, which the desktops' own
/// settings show and can switch off. Touches the disk on the calling thread.
class AutostartLoginItem final : public LoginItem {
public:
    /// `autostartFolder` is "autostart" in the user's configuration folder; `command` is the
    /// program by its absolute path and its arguments.
    AutostartLoginItem(const std::filesystem::path& autostartFolder,
                       std::vector<std::string> command);

    [[nodiscard]] bool isEnabled() const override;
    bool registerItem() override;
    bool unregisterItem() override;

private:
    std::filesystem::path entry_;
    std::vector<std::string> command_;
};

} // namespace pello
