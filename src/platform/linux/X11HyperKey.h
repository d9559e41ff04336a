#pragma once

#include "platform/linux/X11Connection.h"
#include "platform/linux/X11SavedKeys.h"

#include <cstdint>
#include <filesystem>

namespace pello {

/// Caps Lock as a key that types nothing and holds Shift, Control, Alt and Super down: one changed
/// key in the server's map. Main thread only.
class X11HyperKey {
public:
    /// `file` keeps what the key did before, for as long as it is changed.
    explicit X11HyperKey(const std::filesystem::path& file);

    /// Whether there is a server whose keys can be changed.
    [[nodiscard]] bool isPossible() const;

    /// Whether the key works like that at present, by whosever doing. Waits for the server.
    [[nodiscard]] bool isInPlace() const;

    /// Whether what the key did before is known, so that `restore` can bring it back.
    [[nodiscard]] bool isOwn() const { return !saved_.isEmpty(); }

    /// Changes the key on every keyboard, and on those that come later through `adopt`. Whether
    /// that was done; when the file cannot be written nothing is. Waits for the server.
    bool put();

    /// Changes the key on keyboards that came after `put`, as long as it is in place.
    void adopt();

    /// Undoes `put`, also that of a program before. Keyboards whose key another program changed
    /// since are left alone. False when the key is changed and nobody knows what it was.
    bool restore();

    /// The connection that asks; for whoever wants to know of new keyboards.
    [[nodiscard]] const X11Connection& connection() const { return connection_; }

private:
    [[nodiscard]] std::vector<X11Keyboards::Device> keyboards() const;
    [[nodiscard]] std::uint8_t mask() const;
    bool putOn(const std::vector<X11Keyboards::Device>& keyboards);
    void releaseLock() const;

    X11Connection connection_;
    bool isPossible_ = false;
    X11SavedKeys saved_;
};

} // namespace pello
