#pragma once

#include "platform/linux/X11Key.h"
#include "platform/linux/X11Keyboards.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pello {

/// What a key did on each keyboard before it was changed, in a file, so that it can be undone even
/// after a crash.
class X11SavedKeys {
public:
    /// Reads `file` where there is one. A damaged one counts as empty.
    explicit X11SavedKeys(std::filesystem::path file);

    /// Reads the file again, which another program may have written since.
    void load();

    [[nodiscard]] bool isEmpty() const { return entries_.empty(); }
    [[nodiscard]] bool holds(const X11Keyboards::Device& keyboard) const;

    /// What was kept for `keyboard`: the one of this number and name, or else of this name, or else
    /// the one kept first. Null when nothing was kept.
    [[nodiscard]] const X11Key* find(const X11Keyboards::Device& keyboard) const;

    /// Keeps `key` for `keyboard` until `clear`. Not in the file before `write`.
    void keep(const X11Keyboards::Device& keyboard, X11Key key);

    /// Whether the disk has it now.
    [[nodiscard]] bool write() const;

    /// Forgets everything and removes the file.
    void clear();

private:
    struct Entry {
        X11Keyboards::Device keyboard;
        X11Key key;
    };

    std::filesystem::path file_;
    std::vector<Entry> entries_;
};

} // namespace pello
