#pragma once

#include <unistd.h>
#include <utility>

namespace pello {

/// Owns an open file descriptor. Any thread.
class FileDescriptor {
public:
    /// Takes over `number`; a negative one is none.
    explicit FileDescriptor(int number = -1) : number_(number) {}

    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    ~FileDescriptor() {
        if (number_ >= 0) {
            ::close(number_);
        }
    }

    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] explicit operator bool() const { return number_ >= 0; }

private:
    int number_;
};

} // namespace pello
