#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// Finds image files by icon name, as the freedesktop icon theme standard lays them out.
///
/// Reads the themes' indexes once, when made, and lists the folders that they name: most there are
/// not, and most of the others are not worth asking for an icon. Immutable after that, so that any
/// thread may search it, several at a time. A theme that is missing or cannot be read has no icons.
class IconTheme {
public:
    /// Searches the themes `names`, each followed by those that it inherits from, then hicolor, in
    /// the folders `roots` in order of precedence; at last, images that lie directly in a root.
    IconTheme(std::span<const std::string> names, std::vector<std::filesystem::path> roots);

    /// The folders that the standard names for this user.
    [[nodiscard]] static std::vector<std::filesystem::path> standardRoots();

    /// The image of icon `name` that suits a square of `pixels` best; rather too large than too
    /// small. Of the themes the first that has the icon in any size decides.
    [[nodiscard]] std::optional<std::filesystem::path> find(std::string_view name,
                                                            int pixels) const;

    /// One folder of a theme that there is: the sizes, in pixels, that its images are drawn for.
    struct Folder {
        std::filesystem::path path;
        int size = 0;
        int smallest = 0;
        int largest = 0;
        std::vector<std::uint32_t> names; // hashes of what its files are called, sorted
    };

private:
    struct Theme {
        std::string name;
        std::vector<Folder> folders;
    };

    void add(const std::string& name);
    void addFolders(Theme& theme, const std::string& path, const Folder& sizes) const;
    [[nodiscard]] static std::optional<std::filesystem::path>
    findIn(const Theme& theme, const std::string& name, int pixels);

    std::vector<std::filesystem::path> roots_;
    std::vector<Theme> themes_;
};

} // namespace pello
