#pragma once

#include <functional>
#include <map>
#include <string>

namespace pello {

/// A process's environment variables, by their names.
using EnvironmentVariables = std::map<std::string, std::string, std::less<>>;

} // namespace pello
