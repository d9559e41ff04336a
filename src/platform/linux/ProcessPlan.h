#pragma once

#include "platform/linux/Environment.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pello {

/// A program to start.
struct ProcessPlan {
    /// The file to run, absolute.
    std::filesystem::path program;
    /// Its arguments, its own name first.
    std::vector<std::string> arguments;
    Environment environment;
    /// The folder to start in.
    std::filesystem::path folder;
};

} // namespace pello
