#include "platform/bundles/PropertyList.h"

#include "base/Text.h"
#include "platform/bundles/PropertyListLimits.h"

#include <plist/plist.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <span>

namespace pello {

namespace {

struct FreeNode {
    void operator()(void* node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, FreeNode>;

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); } // NOLINT(*-no-malloc)
};
template <class T>
using Allocated = std::unique_ptr<T, FreeMemory>;

// The library's dates are whole seconds in 32 bits and microseconds, which it cuts off rather than
// rounds when it hands them out, so that they would creep with each rewriting: milliseconds stay.
// The fraction comes without its sign.
constexpr double kDateSpan = 2147483000;

Date dateValue(plist_t node) {
    std::int32_t seconds = 0;
    std::int32_t microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    const double fraction = std::round(microseconds / 1000.0) / 1000.0;
    return {seconds < 0 ? seconds - fraction : seconds + fraction};
}

plist_t dateNode(Date date) {
    double moment = std::isnan(date.sinceReference)
                        ? 0
                        : std::clamp(date.sinceReference, -kDateSpan, kDateSpan);
    if (moment > -1 && moment < 0) {
        moment = 0; // this second's sign could not be read back
    }
    const double whole = std::floor(moment);
    const double fraction = std::round((moment - whole) * 1000) * 1000;
    return plist_new_date(static_cast<std::int32_t>(whole), static_cast<std::int32_t>(fraction));
}

PropertyValue integerValue(plist_t node) {
    std::uint64_t bits = 0;
    plist_get_uint_val(node, &bits);
    const auto number = static_cast<std::int64_t>(bits);
    if (number < 0) {
        // A negative number and one beyond the signed range have the same bits; only the width
        // with which the library keeps them tells.
        const Node negative(plist_new_uint(bits));
        if (plist_compare_node_value(node, negative.get()) == 0) {
            return static_cast<double>(bits);
        }
    }
    return number;
}

std::optional<PropertyValue> valueOf(plist_t node);

PropertyValue arrayValue(plist_t node) {
    PropertyArray array;
    plist_array_iter cursor = nullptr;
    plist_array_new_iter(node, &cursor);
    const Allocated<void> owner(cursor);
    for (std::uint32_t left = plist_array_get_size(node); left > 0; --left) {
        plist_t item = nullptr;
        plist_array_next_item(node, cursor, &item);
        if (auto value = valueOf(item)) {
            array.push_back(*std::move(value));
        }
    }
    return array;
}

PropertyValue dictionaryValue(plist_t node) {
    PropertyDictionary dictionary;
    plist_dict_iter cursor = nullptr;
    plist_dict_new_iter(node, &cursor);
    const Allocated<void> owner(cursor);
    for (std::uint32_t left = plist_dict_get_size(node); left > 0; --left) {
        char* key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, cursor, &key, &item);
        const Allocated<char> keyOwner(key);
        auto value = key != nullptr ? valueOf(item) : std::nullopt;
        if (value) {
            dictionary.insert_or_assign(text::wellFormed(key), *std::move(value));
        }
    }
    return dictionary;
}

PropertyValue dataValue(plist_t node) {
    std::uint64_t length = 0;
    const char* bytes = plist_get_data_ptr(node, &length);
    return PropertyData(bytes, bytes + length);
}

PropertyValue stringValue(plist_t node) {
    std::uint64_t length = 0;
    const char* characters = plist_get_string_ptr(node, &length);
    return characters != nullptr ? text::wellFormed({characters, length}) : std::string();
}

std::optional<PropertyValue> valueOf(plist_t node) {
    std::uint8_t flag = 0;
    double real = 0;
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
        plist_get_bool_val(node, &flag);
        return flag != 0;
    case PLIST_UINT:
        return integerValue(node);
    case PLIST_REAL:
        plist_get_real_val(node, &real);
        return real;
    case PLIST_STRING:
        return stringValue(node);
    case PLIST_DATA:
        return dataValue(node);
    case PLIST_DATE:
        return dateValue(node);
    case PLIST_ARRAY:
        return arrayValue(node);
    case PLIST_DICT:
        return dictionaryValue(node);
    default:
        return std::nullopt;
    }
}

/// The library's strings end at a NUL.
std::string storable(std::string_view utf8) {
    std::string stored;
    for (const char c : text::wellFormed(utf8)) {
        stored += c == '\0' ? std::string_view("\xEF\xBF\xBD") : std::string_view(&c, 1);
    }
    return stored;
}

/// Makes the library's node for a value; null for one that is nested too deep.
struct NodeMaker {
    std::size_t depth = 0;

    plist_t make(const PropertyValue& value) const { return std::visit(*this, value.storage); }

    plist_t operator()(const std::string& text) const {
        return plist_new_string(storable(text).c_str());
    }
    plist_t operator()(std::int64_t number) const {
        return plist_new_uint(static_cast<std::uint64_t>(number));
    }
    plist_t operator()(double number) const { return plist_new_real(number); }
    plist_t operator()(bool flag) const { return plist_new_bool(flag ? 1 : 0); }
    plist_t operator()(const PropertyData& data) const {
        return plist_new_data(reinterpret_cast<const char*>(data.data()), data.size());
    }
    plist_t operator()(Date date) const { return dateNode(date); }

    plist_t operator()(const PropertyArray& array) const {
        if (depth >= kPropertyListDepth) {
            return nullptr;
        }
        Node node(plist_new_array());
        const NodeMaker inner{depth + 1};
        for (const PropertyValue& element : array) {
            plist_t item = inner.make(element);
            if (item == nullptr) {
                return nullptr;
            }
            plist_array_append_item(node.get(), item);
        }
        return node.release();
    }

    plist_t operator()(const PropertyDictionary& dictionary) const {
        if (depth >= kPropertyListDepth) {
            return nullptr;
        }
        Node node(plist_new_dict());
        const NodeMaker inner{depth + 1};
        for (const auto& [key, value] : dictionary) {
            plist_t item = inner.make(value);
            if (item == nullptr) {
                return nullptr;
            }
            plist_dict_set_item(node.get(), storable(key).c_str(), item);
        }
        return node.release();
    }
};

} // namespace

std::optional<PropertyValue> parsePropertyList(std::string_view bytes) {
    if (bytes.empty() || !isWithinPropertyListLimits(bytes)) {
        return std::nullopt;
    }
    plist_t parsed = nullptr;
    const char* begin = bytes.data();
    const auto length = static_cast<std::uint32_t>(bytes.size());
    if (plist_is_binary(begin, length) != 0) {
        plist_from_bin(begin, length, &parsed);
    } else {
        plist_from_xml(begin, length, &parsed);
    }
    const Node root(parsed);
    return root ? valueOf(root.get()) : std::nullopt;
}

std::optional<std::string> serializePropertyList(const PropertyValue& value) {
    const Node root(NodeMaker{}.make(value));
    if (!root) {
        return std::nullopt;
    }
    char* memory = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root.get(), &memory, &length);
    const Allocated<char> owner(memory);
    if (memory == nullptr || !isWithinPropertyListLimits({memory, length})) {
        return std::nullopt;
    }
    return std::string(memory, length);
}

} // namespace pello
