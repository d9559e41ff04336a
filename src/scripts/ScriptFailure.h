#pragma once

#include "answers/Uuid.h"
#include "base/Date.h"

#include <cstdint>
#include <string>

namespace pello {

/// One script's failure, as the user gets to see it. A plain value.
struct ScriptFailure {
    Uuid id;
    /// The command's name.
    std::string name;
    /// The script's file name, by which its failures are told from those of others.
    std::string fileName;
    /// The status that the script ended with, as a shell gives it.
    std::int32_t status = 0;
    /// What to show about it; lines, without a line break at the end.
    std::string detail;
    Date date;

    friend bool operator==(const ScriptFailure&, const ScriptFailure&) = default;
};

} // namespace pello
