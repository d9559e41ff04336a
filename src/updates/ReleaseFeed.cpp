#include "updates/ReleaseFeed.h"

#include "base/Text.h"
#include "updates/NotesMarkup.h"

#include <algorithm>
#include <pugixml.hpp>
#include <sstream>
#include <utility>

namespace pello::ReleaseFeed {
namespace {

constexpr unsigned kParsing = pugi::parse_default | pugi::parse_doctype;

FeedProblem damaged(std::string message) {
    return {.title = "The release notes are damaged", .message = std::move(message)};
}

/// The name behind the prefix: what a prefix stands for differs from feed to feed.
std::string_view localName(const char* name) {
    const std::string_view whole = name;
    return whole.substr(whole.find(':') + 1);
}

pugi::xml_node childNamed(const pugi::xml_node& parent, std::string_view name) {
    return parent.find_child(
        [name](const pugi::xml_node& child) { return localName(child.name()) == name; });
}

pugi::xml_attribute attributeNamed(const pugi::xml_node& element, std::string_view name) {
    return element.find_attribute([name](const pugi::xml_attribute& attribute) {
        return localName(attribute.name()) == name;
    });
}

/// All the text in `element`, with elements as they are written.
std::string contentOf(const pugi::xml_node& element) {
    std::ostringstream content;
    for (const pugi::xml_node& child : element.children()) {
        if (child.type() == pugi::node_element) {
            child.print(content, "", pugi::format_raw);
        } else {
            content << child.value();
        }
    }
    return content.str();
}

/// The version that readers know comes before the one that counts builds.
std::optional<ReleaseVersion> versionOf(const pugi::xml_node& item) {
    const pugi::xml_node enclosure = childNamed(item, "enclosure");
    for (const std::string_view name : {"shortVersionString", "version"}) {
        const std::string_view attribute = attributeNamed(enclosure, name).value();
        const std::string_view element = childNamed(item, name).child_value();
        for (const std::string_view text : {attribute, element}) {
            if (auto version = ReleaseVersion::from(text)) {
                return version;
            }
        }
    }
    return std::nullopt;
}

std::string linkOf(const pugi::xml_node& item) {
    const std::string_view download = attributeNamed(childNamed(item, "enclosure"), "url").value();
    const std::string_view page = childNamed(item, "link").child_value();
    for (const std::string_view address : {download, page}) {
        const auto trimmed = text::trimmingWhitespaceAndControls(address);
        if (isWebAddress(trimmed)) {
            return std::string(trimmed);
        }
    }
    return {};
}

std::optional<Release> releaseOf(const pugi::xml_node& item) {
    auto version = versionOf(item);
    if (!version) {
        return std::nullopt;
    }
    return Release{.version = std::move(*version),
                   .date = releaseDay(childNamed(item, "pubDate").child_value()),
                   .notes = sanitizedNotes(contentOf(childNamed(item, "description"))),
                   .link = linkOf(item)};
}

/// What `document` has instead of releases; nothing when it is a feed.
std::optional<FeedProblem> problemOf(const pugi::xml_document& document,
                                     const pugi::xml_parse_result& result) {
    if (!result) {
        return damaged(std::string(result.description()) + ", at byte " +
                       std::to_string(result.offset) + '.');
    }
    for (const pugi::xml_node& node : document.children()) {
        if (node.type() == pugi::node_doctype &&
            std::string_view(node.value()).find("<!ENTITY") != std::string_view::npos) {
            return damaged("They define entities of their own, which no feed needs.");
        }
    }
    if (!document.child("rss").child("channel")) {
        return damaged("This is no feed of releases.");
    }
    return std::nullopt;
}

} // namespace

Contents read(std::string_view bytes) {
    if (bytes.size() > kLargest) {
        return damaged("They are larger than " + std::to_string(kLargest >> 20) + " MiB.");
    }
    pugi::xml_document document;
    const auto result = document.load_buffer(bytes.data(), bytes.size(), kParsing);
    if (auto problem = problemOf(document, result)) {
        return *std::move(problem);
    }
    std::vector<Release> releases;
    for (const pugi::xml_node& item : document.child("rss").child("channel").children("item")) {
        if (auto release = releaseOf(item)) {
            releases.push_back(std::move(*release));
        }
    }
    std::ranges::stable_sort(releases, std::ranges::greater(), &Release::version);
    const auto repeated = std::ranges::unique(releases, {}, &Release::version);
    releases.erase(repeated.begin(), repeated.end());
    return releases;
}

} // namespace pello::ReleaseFeed
