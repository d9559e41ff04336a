#pragma once

namespace pello {

/// The steps of the guide, in their order.
enum class GuideStep { welcome, activation, checks, login, ready };

} // namespace pello
