#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// What the field codes of a command line stand for.
struct ExecFields {
    /// %c: the application's name.
    std::string name;
    /// %i: its icon; empty when it has none.
    std::string icon;
    /// %k: where its desktop entry lies.
    std::string entry;
};

/// The program and arguments of an `Exec` value (its general escapes already resolved), to be run
/// without any file to open: field codes for files and deprecated ones vanish.
///
/// Quotes and backslashes work as in a shell, which takes in everything that the standard allows
/// and what entries out there use besides. Nothing for a line that names no program, has an open
/// quote or an unknown field code, contains a NUL, or grows beyond what a process may be given.
[[nodiscard]] std::optional<std::vector<std::string>> execArguments(std::string_view exec,
                                                                    const ExecFields& fields);

} // namespace pello
