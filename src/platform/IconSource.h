#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace pello {

/// What an application calls its icon, where the platform keeps icons apart from applications.
///
/// Reads the file system only. Any thread, several at a time.
class IconSource {
public:
    virtual ~IconSource() = default;

    /// The icon that the application at `application` names: a name to be looked up in the icon
    /// theme, or the absolute path of an image. Nothing when it names none or cannot be read.
    [[nodiscard]] virtual std::optional<std::string>
    iconName(const std::filesystem::path& application) const = 0;
};

} // namespace pello
