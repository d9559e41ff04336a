#include "app/ReleaseFeedAddress.h"

#include "app/Version.h"
#include "app/client/ProgramFiles.h"

#include <QUrl>

#include <filesystem>
#include <string_view>

namespace pello {

std::string releaseFeedAddress() {
    if (!std::string_view(kReleaseFeed).empty()) {
        return kReleaseFeed;
    }
    // The same steps lead there where Pello is installed and where it is built.
    const auto file =
        std::filesystem::path(programOfThisProcess()).parent_path().parent_path().parent_path() /
        "share/pello/releases.xml";
    return QUrl::fromLocalFile(QString::fromStdString(file.string())).toEncoded().toStdString();
}

} // namespace pello
