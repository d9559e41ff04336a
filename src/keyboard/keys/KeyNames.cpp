#include "keyboard/keys/KeyNames.h"

#include <algorithm>
#include <array>
#include <span>

namespace pello {
namespace {

struct KeyName {
    std::uint16_t keyCode;
    std::string_view name;
};

constexpr auto kSpecialKeyNames = std::to_array<KeyName>({{49, "Space"},
                                                          {36, "↩"},
                                                          {76, "⌤"},
                                                          {48, "⇥"},
                                                          {51, "⌫"},
                                                          {117, "⌦"},
                                                          {53, "⎋"},
                                                          {123, "←"},
                                                          {124, "→"},
                                                          {125, "↓"},
                                                          {126, "↑"},
                                                          {115, "↖"},
                                                          {119, "↘"},
                                                          {116, "⇞"},
                                                          {121, "⇟"}});

constexpr auto kFunctionKeyNames =
    std::to_array<KeyName>({{122, "F1"},  {120, "F2"},  {99, "F3"},   {118, "F4"},  {96, "F5"},
                            {97, "F6"},   {98, "F7"},   {100, "F8"},  {101, "F9"},  {109, "F10"},
                            {103, "F11"}, {111, "F12"}, {105, "F13"}, {107, "F14"}, {113, "F15"},
                            {106, "F16"}, {64, "F17"},  {79, "F18"},  {80, "F19"},  {90, "F20"}});

std::string_view nameIn(std::span<const KeyName> table, std::uint16_t keyCode) {
    const auto entry = std::ranges::find(table, keyCode, &KeyName::keyCode);
    return entry == table.end() ? std::string_view() : entry->name;
}

} // namespace

std::string_view specialKeyName(std::uint16_t keyCode) {
    return nameIn(kSpecialKeyNames, keyCode);
}

std::string_view functionKeyName(std::uint16_t keyCode) {
    return nameIn(kFunctionKeyNames, keyCode);
}

} // namespace pello
