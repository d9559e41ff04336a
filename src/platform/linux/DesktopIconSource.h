#pragma once

#include "platform/IconSource.h"
#include "platform/linux/Environment.h"

#include <string>
#include <vector>

namespace pello {

/// Icons as desktop entries name them.
class DesktopIconSource final : public IconSource {
public:
    /// `environment` tells the languages, for which an entry may name other icons.
    explicit DesktopIconSource(const Environment& environment);

    [[nodiscard]] std::optional<std::string>
    iconName(const std::filesystem::path& application) const override;

private:
    std::vector<std::string> locales_;
};

} // namespace pello
