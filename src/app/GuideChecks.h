#pragma once

#include "app/Diagnosis.h"
#include "ui/guide/GuideCheck.h"

#include <vector>

namespace pello {

/// What was found on the desktop, each with what it is for, as the guide shows it: what is wrong
/// comes first.
[[nodiscard]] std::vector<GuideCheck> guideChecks(const std::vector<Finding>& findings);

} // namespace pello
