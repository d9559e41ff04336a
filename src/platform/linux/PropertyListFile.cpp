#include "platform/linux/PropertyListFile.h"

#include "platform/bundles/PropertyList.h"
#include "platform/linux/FileDescriptor.h"

#include <sys/stat.h>

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace pello {
namespace {

PropertyListFile unreadable(int reason) {
    const bool isAbsent = reason == ENOENT;
    return {.state =
                isAbsent ? PropertyListFile::State::absent : PropertyListFile::State::unreadable,
            .values = {},
            .stamp = std::nullopt,
            .error = {isAbsent ? 0 : reason, std::generic_category()}};
}

/// The whole content; on failure the reason is in errno.
std::optional<std::string> readAll(int file, std::size_t size) {
    std::string content(size, '\0');
    std::size_t filled = 0;
    while (filled < size) {
        const ssize_t count = ::read(file, content.data() + filled, size - filled);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        filled += static_cast<std::size_t>(count);
    }
    content.resize(filled);
    return content;
}

} // namespace

PropertyListFile PropertyListFile::load(const std::filesystem::path& file) {
    // Without O_NONBLOCK a pipe of that name would keep the program from starting.
    const FileDescriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status{};
    if (!descriptor || ::fstat(descriptor.number(), &status) != 0) {
        return unreadable(errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return unreadable(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    }
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > kPropertyListBytes) {
        return unreadable(EFBIG);
    }
    const auto content = readAll(descriptor.number(), size);
    if (!content) {
        return unreadable(errno);
    }
    auto value = parsePropertyList(*content);
    auto* values = value ? std::get_if<PropertyDictionary>(&value->storage) : nullptr;
    if (values == nullptr) {
        return {.state = State::damaged, .values = {}, .stamp = fileStamp(status), .error = {}};
    }
    return {.state = State::read,
            .values = std::move(*values),
            .stamp = fileStamp(status),
            .error = {}};
}

} // namespace pello
