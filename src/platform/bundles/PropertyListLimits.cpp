#include "platform/bundles/PropertyListLimits.h"

#include "platform/bundles/PropertyList.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

// Ways in which a small file could do harm:
//
//   XML     <array><array><array>...      as deep as the file is long: recursion eats the stack
//   binary  1: [2 2]  2: [3 3]  3: [4 4]  shared objects: 40 of them stand for 2^40 values
//           1: [2]    2: [1]              an object inside itself
//           a key with a NUL in it        the library ends the program for it
//
// The XML walk counts open containers. The binary walk computes depth and written-out size of each
// object once, from the leaves up, and refuses what contains itself.

namespace pello {

namespace {

constexpr std::string_view kBinaryMagic = "bplist";
constexpr std::string_view kBlanks = " \t\r\n";

/// Walks the tags of an XML list, as strictly as needed to know which containers are open.
class XmlWalk {
public:
    explicit XmlWalk(std::string_view xml) : rest_(xml) {}

    bool isBounded() {
        for (std::size_t tag = rest_.find('<'); tag != std::string_view::npos;
             tag = rest_.find('<')) {
            rest_.remove_prefix(tag);
            if (!passTag()) {
                return false;
            }
        }
        return true;
    }

private:
    /// Goes past the tag at the front; false when it nests too deep or hides what nests.
    bool passTag() {
        if (rest_.starts_with("<!--")) {
            return passUntil("-->");
        }
        if (rest_.starts_with("<![CDATA[")) {
            return passUntil("]]>");
        }
        if (rest_.starts_with("<!") || rest_.starts_with("<?")) {
            return depth_ == 0 && passUntil(">"); // prologue; it has no place further in
        }
        const bool isClosing = rest_.starts_with("</");
        rest_.remove_prefix(isClosing ? 2 : 1);
        const bool isContainer = passWord("array") || passWord("dict");
        const std::string_view tail = passTail();
        if (!isContainer) {
            return true;
        }
        if (tail.find_first_not_of(" \t\r\n/") != std::string_view::npos) {
            return false; // containers have no attributes
        }
        if (isClosing) {
            depth_ -= std::min<std::size_t>(depth_, 1);
        } else if (!tail.ends_with('/')) {
            ++depth_;
        }
        return depth_ <= kPropertyListDepth;
    }

    bool passWord(std::string_view word) {
        if (!rest_.starts_with(word)) {
            return false;
        }
        const std::string_view after = rest_.substr(word.size());
        if (!after.empty() && after.front() != '>' && after.front() != '/' &&
            kBlanks.find(after.front()) == std::string_view::npos) {
            return false;
        }
        rest_ = after;
        return true;
    }

    /// What stands before the tag's '>', which a quoted attribute may contain.
    std::string_view passTail() {
        char quote = '\0';
        std::size_t end = 0;
        for (; end < rest_.size(); ++end) {
            const char c = rest_[end];
            if (quote != '\0') {
                quote = c == quote ? '\0' : quote;
            } else if (c == '"' || c == '\'') {
                quote = c;
            } else if (c == '>') {
                break;
            }
        }
        const std::string_view tail = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return tail;
    }

    bool passUntil(std::string_view end) {
        const std::size_t found = rest_.find(end);
        if (found == std::string_view::npos) {
            return false;
        }
        rest_.remove_prefix(found + end.size());
        return true;
    }

    std::string_view rest_;
    std::size_t depth_ = 0;
};

/// Measures the objects of a binary list.
class BinaryWalk {
public:
    explicit BinaryWalk(std::string_view list) : list_(list) {}

    bool isBounded() {
        constexpr std::size_t kTrailer = 32;
        if (list_.size() < kBinaryMagic.size() + 2 + kTrailer) {
            return false;
        }
        const std::size_t trailer = list_.size() - kTrailer;
        offsetSize_ = number(trailer + 6, 1).value_or(0);
        referenceSize_ = number(trailer + 7, 1).value_or(0);
        const std::size_t count = number(trailer + 8, 8).value_or(0);
        const std::size_t root = number(trailer + 16, 8).value_or(0);
        table_ = number(trailer + 24, 8).value_or(0);
        if (count > list_.size() || root >= count) {
            return false;
        }
        measures_.resize(count);
        return measure(root, 0) != nullptr;
    }

private:
    struct Measure {
        enum class State { unseen, open, done } state = State::unseen;
        std::size_t height = 0; // containers below and including this one
        std::size_t cost = 0;
        bool hasNul = false; // a text with a NUL in it
    };

    /// The measure of an object, or null when it is out of bounds.
    const Measure* measure(std::size_t index, std::size_t depth) {
        if (index >= measures_.size() || depth > kPropertyListDepth) {
            return nullptr;
        }
        Measure& here = measures_[index];
        if (here.state == Measure::State::done) {
            return depth + here.height <= kPropertyListDepth ? &here : nullptr;
        }
        if (here.state == Measure::State::open) {
            return nullptr;
        }
        here.state = Measure::State::open;
        const auto offset = number(table_ + index * offsetSize_, offsetSize_);
        if (!offset || !measureObject(here, *offset, depth)) {
            return nullptr;
        }
        here.state = Measure::State::done;
        return &here;
    }

    bool measureObject(Measure& here, std::size_t offset, std::size_t depth) {
        const auto marker = number(offset, 1);
        if (!marker) {
            return false;
        }
        const std::size_t kind = *marker >> 4U;
        std::size_t position = offset + 1;
        std::size_t count = *marker & 0xFU;
        constexpr std::size_t kData = 0x4;
        if (kind >= kData && count == 0xF && !readCount(position, count)) {
            return false;
        }
        here.cost = kPropertyListNodeCost;
        constexpr std::size_t kAscii = 0x5;
        constexpr std::size_t kUtf16 = 0x6;
        constexpr std::size_t kArray = 0xA;
        constexpr std::size_t kDictionary = 0xD;
        if (kind < kArray) {
            const std::size_t unit = kind == kUtf16 ? 2 : 1;
            here.cost += count * unit;
            here.hasNul = (kind == kAscii || kind == kUtf16) && hasNul(position, count, unit);
            return count <= list_.size();
        }
        here.height = 1;
        const std::size_t keys = kind == kDictionary ? count : 0;
        return depth < kPropertyListDepth && count <= list_.size() &&
               addElements(here, position, keys, keys + count, depth);
    }

    [[nodiscard]] bool hasNul(std::size_t position, std::size_t count, std::size_t unit) const {
        for (std::size_t i = 0; i < count && position < list_.size(); ++i, position += unit) {
            if (number(position, unit) == std::size_t{0}) {
                return true;
            }
        }
        return false;
    }

    /// Adds the `count` elements to which references stand at `position`, `keys` of them first.
    bool addElements(Measure& here, std::size_t position, std::size_t keys, std::size_t count,
                     std::size_t depth) {
        for (std::size_t i = 0; i < count; ++i) {
            const auto reference = number(position + i * referenceSize_, referenceSize_);
            const Measure* element = reference ? measure(*reference, depth + 1) : nullptr;
            if (element == nullptr || (i < keys && element->hasNul)) {
                return false;
            }
            here.height = std::max(here.height, element->height + 1);
            here.cost += element->cost;
            if (here.cost > kPropertyListBytes) {
                return false;
            }
        }
        return true;
    }

    /// A count of 15 or more follows the marker as an integer object of its own.
    bool readCount(std::size_t& position, std::size_t& count) const {
        const auto marker = number(position, 1);
        if (!marker || (*marker & 0xF8U) != 0x10U) {
            return false;
        }
        const std::size_t size = std::size_t{1} << (*marker & 0x7U);
        const auto value = number(position + 1, size);
        position += 1 + size;
        count = value.value_or(0);
        return value.has_value();
    }

    /// The big-endian number of `size` bytes at `position`.
    [[nodiscard]] std::optional<std::size_t> number(std::size_t position, std::size_t size) const {
        if (size == 0 || size > 8 || position > list_.size() || list_.size() - position < size) {
            return std::nullopt;
        }
        std::size_t value = 0;
        for (const char c : list_.substr(position, size)) {
            value = value << 8U | static_cast<std::uint8_t>(c);
        }
        return value;
    }

    std::string_view list_;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::size_t table_ = 0;
    std::vector<Measure> measures_;
};

} // namespace

bool isWithinPropertyListLimits(std::string_view bytes) {
    if (bytes.size() > kPropertyListBytes) {
        return false;
    }
    return bytes.starts_with(kBinaryMagic) ? BinaryWalk(bytes).isBounded()
                                           : XmlWalk(bytes).isBounded();
}

} // namespace pello
