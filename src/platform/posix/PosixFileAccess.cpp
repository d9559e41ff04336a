#include "platform/posix/PosixFileAccess.h"

#include <fcntl.h>
#include <unistd.h>

namespace pello {

bool PosixFileAccess::canExecute(const std::filesystem::path& file) const {
    return ::faccessat(AT_FDCWD, file.c_str(), X_OK, AT_EACCESS) == 0;
}

} // namespace pello
