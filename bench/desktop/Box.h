#pragma once

#include <algorithm>
#include <limits>

namespace pello::bench {

/// A part of the screen; without anything in it at first.
struct Box {
    int left = std::numeric_limits<int>::max();
    int top = std::numeric_limits<int>::max();
    int right = -1; ///< Behind the last pixel, as `bottom`.
    int bottom = -1;

    [[nodiscard]] int width() const { return right - left; }
    [[nodiscard]] int height() const { return bottom - top; }
    [[nodiscard]] bool isEmpty() const { return right <= left || bottom <= top; }

    void include(const Box& other) {
        left = std::min(left, other.left);
        top = std::min(top, other.top);
        right = std::max(right, other.right);
        bottom = std::max(bottom, other.bottom);
    }
};

} // namespace pello::bench
