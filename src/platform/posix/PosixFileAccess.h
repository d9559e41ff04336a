#pragma once

#include "platform/FileAccess.h"

namespace pello {

/// What the kernel would let this process do.
class PosixFileAccess final : public FileAccess {
public:
    [[nodiscard]] bool canExecute(const std::filesystem::path& file) const override;
};

} // namespace pello
