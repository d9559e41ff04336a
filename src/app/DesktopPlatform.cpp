#include "app/DesktopPlatform.h"

#include "platform/linux/DesktopIconSource.h"
#include "ui/icons/IconTheme.h"

#include <QIcon>

#include <array>
#include <string>

namespace pello {
namespace {

/// The user's theme, then the one that every desktop comes with.
std::shared_ptr<const IconTheme> iconTheme() {
    const std::array<std::string, 2> names = {QIcon::themeName().toStdString(), "Adwaita"};
    return std::make_shared<const IconTheme>(names, IconTheme::standardRoots());
}

} // namespace

DesktopPlatform::DesktopPlatform()
    : icons_(loop_, std::make_shared<const DesktopIconSource>(services_.environment), iconTheme()) {
}

/// Scans that are under way read through the services, which go before the loop does.
DesktopPlatform::~DesktopPlatform() {
    loop_.endBackgroundWork();
}

} // namespace pello
