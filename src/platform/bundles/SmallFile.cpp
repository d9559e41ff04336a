#include "platform/bundles/SmallFile.h"

#include <fstream>
#include <system_error>

namespace pello {

std::optional<std::string> readSmallFile(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        return std::nullopt;
    }
    const auto size = std::filesystem::file_size(file, error);
    std::ifstream stream(file, std::ios::binary);
    if (error || size > kSmallFileBytes || !stream) {
        return std::nullopt;
    }
    std::string content(static_cast<std::size_t>(size), '\0');
    stream.read(content.data(), static_cast<std::streamsize>(content.size()));
    content.resize(static_cast<std::size_t>(stream.gcount()));
    return content;
}

} // namespace pello
