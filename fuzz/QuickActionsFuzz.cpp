// Items made of whatever is typed, in the locales that differ most. Half of the inputs are bytes,
// the other half words that the answers understand, in any order.

#include "platform/memory/MemoryLoginItem.h"
#include "platform/memory/MemoryMainLoop.h"
#include "platform/memory/MemoryPasteboard.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "platform/memory/MemoryWorkspace.h"
#include "sources/QuickActions.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace pello;

constexpr auto kWords = std::to_array<std::string_view>({"0",         "1",        "2",
                                                         "7",         "12",       "25",
                                                         "29",        "31",       "1530",
                                                         "2024",      "9999",     "1e5",
                                                         ".",         ",",        "_",
                                                         ":",         "/",        "-",
                                                         "+",         "*",        "×",
                                                         "÷",         "%",        "^",
                                                         "(",         ")",        " ",
                                                         "  ",        "\t",       "sqrt(",
                                                         "pi",        "e",        "km",
                                                         "mi",        "°",        "f",
                                                         "c",         "in",       "to",
                                                         "as",        "=",        "->",
                                                         "fl oz",     "wk",       "days",
                                                         "weeks",     "months",   "years",
                                                         "until",     "since",    "between",
                                                         "and",       "ago",      "from",
                                                         "now",       "today",    "next",
                                                         "last",      "monday",   "friday",
                                                         "may",       "feb",      "december",
                                                         "dezember",  "easter",   "christmas",
                                                         "how many ", "time",     "what time is it",
                                                         "noon",      "midnight", "3pm",
                                                         "am",        "tokyo",    "new york",
                                                         "utc",       "gmt",      "+5",
                                                         "-3:30",     "la",       "g",
                                                         "gh ",       "map",      "https://",
                                                         "a.test",    "mailto:",  "é",
                                                         "\u0301",    "٣",        "३",
                                                         "١٥",        "½",        "\xff",
                                                         "−",         "∞",        "nan"});

/// The settings and ports, and one maker of items for each locale.
class Launcher {
public:
    Launcher() {
        for (const char* locale : {"en_US", "de_DE", "fr_FR", "ar_EG", "hi_IN"}) {
            makers_.push_back(std::make_unique<QuickActions>(loop_, workspace_, pasteboard_));
            makers_.back()->prepare({.locale = locale, .timeZone = "America/New_York"});
        }
        loop_.settle();
    }

    [[nodiscard]] std::vector<LaunchItemRef> items(std::size_t locale,
                                                   std::string_view query) const {
        return makers_[locale % makers_.size()]->items(query, settings_);
    }

private:
    MemoryMainLoop loop_{Date{817'000'000}};
    MemoryUserDefaults defaults_;
    MemoryLoginItem loginItem_;
    PelloSettings settings_{defaults_, loginItem_};
    MemoryWorkspace workspace_;
    MemoryPasteboard pasteboard_;
    std::vector<std::unique_ptr<QuickActions>> makers_;
};

void require(bool isTrue, const char* what, const std::string& query) {
    if (!isTrue) {
        std::fprintf(stderr, "%s: \"%s\"\n", what, query.c_str());
        std::abort();
    }
}

std::string queryOf(const std::uint8_t* data, std::size_t size, bool isOfWords) {
    std::string query;
    for (std::size_t i = 0; i < size; ++i) {
        if (isOfWords) {
            query += kWords[data[i] % kWords.size()];
            query += data[i] >= kWords.size() ? " " : "";
        } else {
            query += static_cast<char>(data[i]);
        }
    }
    return query;
}

void check(const std::vector<LaunchItemRef>& items, const std::string& query) {
    const auto rank = [](const LaunchItemRef& item) {
        constexpr auto kOrder =
            std::to_array<std::string_view>({"bang:", "calc:", "convert:unit:", "convert:time:",
                                             "convert:date:", "url:", "search:"});
        return std::ranges::find_if(kOrder,
                                    [&](auto prefix) { return item->id.starts_with(prefix); }) -
               kOrder.begin();
    };
    require(std::ranges::adjacent_find(items, std::ranges::greater_equal(), rank) == items.end(),
            "each kind at most once, in its place", query);
    for (const LaunchItemRef& item : items) {
        require(!item->title.empty() && !item->subtitle.value_or("").empty(), "an empty row",
                query);
        if (item->id.starts_with("calc:")) {
            require(item->title.find_first_of("eEnN") == std::string::npos, "no plain number",
                    query);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Launcher launcher;
    if (size == 0) {
        return 0;
    }
    const std::string query = queryOf(data + 1, size - 1, data[0] % 2 == 1);
    check(launcher.items(data[0] / 2, query), query);
    return 0;
}
