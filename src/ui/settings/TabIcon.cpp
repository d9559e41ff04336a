#include "ui/settings/TabIcon.h"

#include "ui/settings/SymbolTile.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace pello {
namespace {

constexpr std::array kSymbols{std::string_view("gearshape"),
                              std::string_view("circle.lefthalf.filled"),
                              std::string_view("list.bullet.rectangle"),
                              std::string_view("arrow.up.right.square"), std::string_view("link")};
constexpr int kSide = 22;

} // namespace

QIcon tabIcon(SettingsTab tab) {
    const SymbolDrawing& drawing = drawingOf(kSymbols.at(static_cast<std::size_t>(tab)));
    QIcon icon;
    for (const double ratio : {1.0, 2.0, 3.0}) {
        icon.addPixmap(symbolTile(drawing, kSide, ratio), QIcon::Normal);
        icon.addPixmap(symbolTile(drawing, kSide, ratio), QIcon::Selected);
    }
    return icon;
}

} // namespace pello
