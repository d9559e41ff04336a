#include "app/DesktopPlatform.h"

#include "platform/linux/DesktopIconSource.h"
#include "ui/icons/SharedIconTheme.h"

#include <QIcon>

#include <array>
#include <string>

namespace pello {
namespace {

/// The user's theme, then the one that every desktop comes with.
std::shared_ptr<SharedIconTheme> iconTheme() {
    return std::make_shared<SharedIconTheme>([own = QIcon::themeName().toStdString()] {
        return IconTheme(std::array<std::string, 2>{own, "Adwaita"}, IconTheme::standardRoots());
    });
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
