#include "app/SilencedErrors.h"

#include <fcntl.h>
#include <unistd.h>

namespace pello {

SilencedErrors::SilencedErrors() {
    if (::isatty(STDERR_FILENO) == 0) {
        return;
    }
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    kept_ = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
    if (nowhere >= 0 && kept_ >= 0) {
        ::dup2(nowhere, STDERR_FILENO);
    }
    if (nowhere >= 0) {
        ::close(nowhere);
    }
}

SilencedErrors::~SilencedErrors() {
    if (kept_ >= 0) {
        ::dup2(kept_, STDERR_FILENO);
        ::close(kept_);
    }
}

} // namespace pello
