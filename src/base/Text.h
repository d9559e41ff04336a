#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Text as users see it, on ICU.
///
/// Texts are UTF-8; malformed bytes read as U+FFFD and are kept where a text is passed on. A
/// character is a user-perceived one (an extended grapheme cluster). Nothing here depends on the
/// locale; see Collation.h for what does. Safe on any thread.
namespace pello::text {

/// The characters of `utf8`, in order, each a piece of `utf8` and alive as long as it.
[[nodiscard]] std::vector<std::string_view> characterViews(std::string_view utf8);

/// The characters of `utf8` as strings of their own.
[[nodiscard]] std::vector<std::string> characters(std::string_view utf8);

[[nodiscard]] std::size_t characterCount(std::string_view utf8);

/// Whether each byte of `utf8` is a character of its own: ASCII without carriage returns.
[[nodiscard]] bool hasOnlySingleByteCharacters(std::string_view utf8);

/// The scalar that `character` is in composed form (NFC); nothing when that has more than one, or
/// when the character is empty.
[[nodiscard]] std::optional<char32_t> composedScalar(std::string_view character);

/// `utf8` without its first `count` characters; empty when it has no more than that.
[[nodiscard]] std::string_view droppingFirst(std::string_view utf8, std::size_t count);

/// The whole text in lower case or upper case, by the full Unicode mapping: context counts (final
/// sigma) and lengths may change, in bytes and in characters.
[[nodiscard]] std::string lowercased(std::string_view utf8);
[[nodiscard]] std::string uppercased(std::string_view utf8);

/// Composed form (NFC), well-formed: equal for any two canonically equivalent texts.
[[nodiscard]] std::string composed(std::string_view utf8);

/// Whether two characters are the same to a reader: canonically equivalent.
[[nodiscard]] bool isSameCharacter(std::string_view left, std::string_view right);

/// `utf8` without leading and trailing spaces (general category Zs) and tabs.
[[nodiscard]] std::string_view trimmingBlanks(std::string_view utf8);

/// `utf8` without leading and trailing white space, line breaks, control and format characters
/// (White_Space, Cc, Cf).
[[nodiscard]] std::string_view trimmingWhitespaceAndControls(std::string_view utf8);

/// Whether there is nothing but spaces and tabs in `utf8`.
[[nodiscard]] bool isBlank(std::string_view utf8);

/// `utf8` without its white-space characters (White_Space), wherever they stand.
[[nodiscard]] std::string droppingWhitespace(std::string_view utf8);

/// Properties of one character. Case: of a single scalar its Lowercase or Uppercase property; of
/// several scalars, cased and unchanged by the mapping. Letter, number and white space look at the
/// first scalar, white space at all of them.
[[nodiscard]] bool isLowercase(std::string_view character);
[[nodiscard]] bool isUppercase(std::string_view character);
[[nodiscard]] bool isLetter(std::string_view character);
[[nodiscard]] bool isNumber(std::string_view character);
[[nodiscard]] bool isWhitespace(std::string_view character);

/// Whether readers expect a picture for `utf8`: it begins with a scalar that is one by default
/// (Emoji_Presentation), or asks for that style.
[[nodiscard]] bool isShownAsEmoji(std::string_view utf8);

/// Whether any character of `utf8` is white space.
[[nodiscard]] bool containsWhitespace(std::string_view utf8);

/// Whether any character of `utf8` is a letter or a number.
[[nodiscard]] bool containsLetterOrNumber(std::string_view utf8);

/// The pieces of `utf8` between single-byte `separator`s, empty ones left out.
[[nodiscard]] std::vector<std::string_view> split(std::string_view utf8, char separator);

/// The pieces of `utf8` between white-space characters, empty ones left out.
[[nodiscard]] std::vector<std::string_view> words(std::string_view utf8);

/// The lines of `utf8`, empty ones left out. A line ends at any of Unicode's line breaks.
[[nodiscard]] std::vector<std::string_view> lines(std::string_view utf8);

/// Whether `utf8` is made of lower-case letters (Ll), decimal digits (Nd) and dots alone.
[[nodiscard]] bool isDottedName(std::string_view utf8);

/// `utf8` with malformed bytes replaced by U+FFFD.
[[nodiscard]] std::string wellFormed(std::string_view utf8);

} // namespace pello::text
