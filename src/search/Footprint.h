#pragma once

#include <cstddef>
#include <vector>

namespace pello {

/// The bytes that `elements` takes from the heap for itself, not for what its elements own.
template <class Element>
[[nodiscard]] std::size_t bytesOf(const std::vector<Element>& elements) {
    return elements.capacity() *
           sizeof(Element); // NOLINT(bugprone-sizeof-expression): pointers too
}

} // namespace pello
