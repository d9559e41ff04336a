#pragma once

#include "core/settings/SettingsText.h"

#include <optional>
#include <string>
#include <string_view>

namespace pello {

/// All preferences as one JSON object, a value under each setting's key, to carry from one machine
/// to another. Main thread only.
class SettingsArchive {
public:
    /// `settings` must outlive this object.
    explicit SettingsArchive(SettingsText& settings) : settings_(settings) {}

    /// What a reader can read too: one setting on each line, those with lists on several.
    [[nodiscard]] std::string exported() const;

    /// Takes over the settings that `text`, such an object, names; others stay as they are. When
    /// one of them is not understood, none is changed, and the first problem is told.
    [[nodiscard]] std::optional<SettingsText::Problem> import(std::string_view text);

private:
    SettingsText& settings_;
};

} // namespace pello
