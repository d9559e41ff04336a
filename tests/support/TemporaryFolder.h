#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

namespace pello {

/// A folder of the test's own, removed with everything in it when the test ends.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "pello-XXXXXX").string();
        path_ = ::mkdtemp(name.data());
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    /// Writes a file below this folder, making the folders on the way.
    std::filesystem::path write(const std::filesystem::path& relative,
                                std::string_view content) const {
        const auto file = path_ / relative;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }

    /// Makes a folder below this one.
    std::filesystem::path makeFolder(const std::filesystem::path& relative) const {
        std::filesystem::create_directories(path_ / relative);
        return path_ / relative;
    }

private:
    std::filesystem::path path_;
};

} // namespace pello
