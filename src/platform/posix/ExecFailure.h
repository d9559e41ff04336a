#pragma once

#include <filesystem>
#include <string>

/// Why a program could not be started, in words, each as the part of a sentence. By the error
/// number that the system gave. Any thread.
namespace pello {

/// `file` could not be executed. Looks at the file, and at what it names as its interpreter.
[[nodiscard]] std::string whyNotExecuted(const std::filesystem::path& file, int error);

/// `folder` could not be made the current one.
[[nodiscard]] std::string whyNotEntered(const std::filesystem::path& folder);

/// Something else is in the way.
[[nodiscard]] std::string inTheSystemsWords(int error);

} // namespace pello
