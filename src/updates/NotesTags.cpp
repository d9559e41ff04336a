#include "updates/NotesTags.h"

#include <algorithm>
#include <array>

namespace pello {
namespace {

using enum NotesTag::Fate;

struct Entry {
    std::string_view element;
    NotesTag tag;
};

constexpr auto kTags = std::to_array<Entry>({
    {"a", {kept, "a"}},          {"article", {kept, "p"}},
    {"b", {kept, "b"}},          {"blockquote", {kept, "blockquote"}},
    {"br", {single, "br"}},      {"canvas", {dropped, ""}},
    {"code", {kept, "code"}},    {"dd", {kept, "p"}},
    {"div", {kept, "p"}},        {"dt", {kept, "p"}},
    {"em", {kept, "i"}},         {"frameset", {dropped, ""}},
    {"h1", {kept, "h4"}},        {"h2", {kept, "h4"}},
    {"h3", {kept, "h4"}},        {"h4", {kept, "h4"}},
    {"h5", {kept, "h4"}},        {"h6", {kept, "h4"}},
    {"head", {dropped, ""}},     {"i", {kept, "i"}},
    {"iframe", {dropped, ""}},   {"kbd", {kept, "code"}},
    {"li", {kept, "li"}},        {"math", {dropped, ""}},
    {"noscript", {dropped, ""}}, {"object", {dropped, ""}},
    {"ol", {kept, "ol"}},        {"p", {kept, "p"}},
    {"pre", {kept, "pre"}},      {"script", {dropped, ""}},
    {"section", {kept, "p"}},    {"select", {dropped, ""}},
    {"strong", {kept, "b"}},     {"style", {dropped, ""}},
    {"svg", {dropped, ""}},      {"template", {dropped, ""}},
    {"textarea", {dropped, ""}}, {"title", {dropped, ""}},
    {"tr", {kept, "p"}},         {"tt", {kept, "code"}},
    {"ul", {kept, "ul"}},        {"video", {dropped, ""}},
    {"xmp", {dropped, ""}},
});
static_assert(std::ranges::is_sorted(kTags, {}, &Entry::element));

} // namespace

NotesTag notesTag(std::string_view name) {
    const auto* const found = std::ranges::lower_bound(kTags, name, {}, &Entry::element);
    return found != kTags.end() && found->element == name ? found->tag : NotesTag{};
}

} // namespace pello
