#include "ui/icons/SharedIconTheme.h"

#include <utility>

namespace pello {

SharedIconTheme::SharedIconTheme(Read read) : read_(std::move(read)) {}

std::shared_ptr<const IconTheme> SharedIconTheme::get() {
    const std::scoped_lock lock(mutex_);
    if (!theme_) {
        theme_ = std::make_shared<const IconTheme>(read_());
    }
    return theme_;
}

void SharedIconTheme::forget() {
    const std::scoped_lock lock(mutex_);
    theme_.reset();
}

} // namespace pello
