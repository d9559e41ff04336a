#pragma once

#include <string>
#include <string_view>

namespace pello {

/// `html`, which anybody may have written, as text that is safe to show: made of paragraphs,
/// headings (h4), lists, quotations, code, emphasis and links to http and https, every tag written
/// anew without attributes and closed.
///
/// Scripts, styles, frames, images and drawings go with all that is in them; of other elements
/// their text stays. A text without tags keeps its lines. What is very long is cut. Any thread.
[[nodiscard]] std::string sanitizedNotes(std::string_view html);

/// Whether `address` begins as one of http or https does, in plain characters.
[[nodiscard]] bool isWebAddress(std::string_view address);

} // namespace pello
