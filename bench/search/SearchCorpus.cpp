#include "search/SearchCorpus.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <random>
#include <string_view>

namespace pello::bench::SearchCorpus {
namespace {

using Words = std::vector<std::string>;

/// The standard's distributions differ between libraries; its generators do not.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : generator_(seed) {}
    std::size_t below(std::size_t bound) { return generator_() % bound; }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    template <class Range>
    auto& of(Range& range) {
        return range[below(range.size())];
    }

private:
    std::mt19937_64 generator_;
};

// clang-format off
constexpr std::array<std::string_view, 96> kNouns = {
    "Editor", "Viewer", "Player", "Manager", "Monitor", "Browser", "Terminal", "Calendar", "Mail",
    "Notes", "Photos", "Music", "Video", "Camera", "Recorder", "Converter", "Archive", "Backup",
    "Disk", "Network", "Keyboard", "Mouse", "Display", "Sound", "Printer", "Scanner", "Font",
    "Colour", "Image", "Document", "Spreadsheet", "Presentation", "Database", "Server", "Client",
    "Console", "Debugger", "Profiler", "Compiler", "Studio", "Code", "Builder", "Designer",
    "Planner", "Tracker", "Timer", "Clock", "Weather", "Maps", "Contacts", "Messages", "Chat",
    "Call", "Meeting", "Reader", "Book", "Dictionary", "Translator", "Calculator", "Graph", "Chart",
    "Paint", "Sketch", "Vector", "Model", "Game", "Chess", "Puzzle", "Cards", "Sudoku", "Solitaire",
    "Wallet", "Budget", "Invoice", "Project", "Task", "List", "Window", "Desktop", "Panel", "Menu",
    "Search", "Index", "Cloud", "Sync", "Share", "Transfer", "Remote", "Control", "Security",
    "Password", "Key", "Vault", "Store", "Update", "System"};
constexpr std::array<std::string_view, 40> kVerbs = {
    "Open", "Close", "Save", "Export", "Import", "Print", "Show", "Hide", "Copy", "Paste", "Cut",
    "Find", "Replace", "Select", "Insert", "Delete", "Move", "Rename", "Duplicate", "Zoom", "Rotate",
    "Flip", "Sort", "Filter", "Group", "Merge", "Split", "Align", "Format", "Convert", "Check",
    "Start", "Stop", "Restart", "Connect", "Enable", "Disable", "Reset", "Install", "Remove"};
constexpr std::array<std::string_view, 32> kAdjectives = {
    "New", "Recent", "Quick", "Simple", "Smart", "Private", "Public", "Local", "Remote", "Visual",
    "Advanced", "Virtual", "Digital", "Active", "Hidden", "Full", "Large", "Small", "Dark", "Light",
    "Left", "Right", "Upper", "Lower", "First", "Last", "Next", "Previous", "Safe", "Fast", "Open",
    "Free"};
constexpr std::array<std::string_view, 40> kSyllables = {
    "ka", "lo", "mi", "ter", "on", "fire", "sa", "fa", "ri", "vis", "tu", "al", "blen", "der", "in",
    "ka", "go", "mo", "za", "ro", "net", "pho", "to", "gra", "um", "ex", "qua", "lis", "wen", "dor",
    "py", "rus", "to", "ju", "pi", "sket", "ly", "fy", "ster", "ix"};
constexpr std::array<std::string_view, 28> kForeign = {
    "Einstellungen", "für", "Übersicht", "Größe", "Éditeur", "d'images", "Système", "Español",
    "Configuración", "Português", "Ångström", "Dvořák", "Настройки", "Редактор", "Файлы",
    "Ρυθμίσεις", "ΣΥΣΤΗΜΑ", "设置", "文件", "編集", "設定", "カレンダー", "한글", "편집기",
    "İstanbul", "naïve", "Zoë", "Café"};
constexpr std::array<std::string_view, 24> kCategories = {
    "Utility", "Development", "Graphics", "AudioVideo", "Office", "Network", "WebBrowser", "Email",
    "Internet", "Game", "Education", "Science", "System Tools", "Accessories", "Settings",
    "TextEditor", "FileManager", "Music", "Photography", "Finance", "News", "Productivity",
    "Security", "Text Processing"};
constexpr std::array<std::string_view, 8> kDomains = {"com", "com", "com", "org", "org", "net", "io", "de"};
// clang-format on

std::string madeUpName(Dice& dice) {
    std::string name;
    for (std::size_t count = 2 + dice.below(2); count > 0; --count) {
        name += dice.of(kSyllables);
    }
    name[0] = static_cast<char>(name[0] - 'a' + 'A');
    return name;
}

std::string joined(std::initializer_list<std::string_view> words, char separator = ' ') {
    std::string result;
    for (const auto word : words) {
        result += result.empty() ? "" : std::string(1, separator);
        result += word;
    }
    return result;
}

std::string foreignTitle(Dice& dice) {
    switch (dice.below(3)) {
    case 0:
        return joined({dice.of(kForeign), dice.of(kNouns)});
    case 1:
        return joined({dice.of(kForeign), dice.of(kForeign)});
    default:
        return joined({madeUpName(dice), dice.of(kForeign)});
    }
}

std::string applicationTitle(Dice& dice) {
    switch (dice.below(7)) {
    case 0:
        return madeUpName(dice);
    case 1:
        return joined({madeUpName(dice), dice.of(kNouns)});
    case 2:
        return joined({dice.of(kAdjectives), dice.of(kNouns)});
    case 3:
        return joined({dice.of(kAdjectives), dice.of(kNouns), dice.of(kNouns)});
    case 4:
        return madeUpName(dice) + madeUpName(dice);
    case 5:
        return joined({madeUpName(dice), std::to_string(2 + dice.below(20))});
    default:
        return joined({madeUpName(dice), dice.of(kAdjectives), dice.of(kNouns)});
    }
}

std::string acronym(std::string_view title) {
    std::string initials;
    bool isStart = true;
    for (const auto character : text::characterViews(title)) {
        initials += isStart ? character : "";
        isStart = character == " " || character == "-";
    }
    return initials;
}

LaunchItem application(Dice& dice, const Words& vendors) {
    LaunchItem item;
    item.title = dice.oneIn(14) ? foreignTitle(dice) : applicationTitle(dice);
    const std::string_view domain = dice.of(kDomains);
    const std::string& vendor = dice.of(vendors);
    const std::string name = dice.oneIn(2) ? madeUpName(dice) : std::string(dice.of(kNouns));
    item.keywords = {std::string(domain), vendor, name};
    if (item.title.find(' ') != std::string::npos) {
        item.keywords.push_back(acronym(item.title));
    }
    for (std::size_t count = dice.below(3); count > 0; --count) {
        item.keywords.emplace_back(dice.of(kCategories));
    }
    item.id = "app:/Applications/" + item.title + ".app";
    item.subtitle = "/Applications";
    item.icon = LaunchItem::FileIcon{item.id.substr(4)};
    item.kind = LaunchItem::Kind::application;
    return item;
}

LaunchItem menuItem(Dice& dice) {
    LaunchItem item;
    item.title = joined({dice.of(kVerbs), dice.oneIn(2) ? dice.of(kAdjectives) : dice.of(kNouns),
                         dice.oneIn(14) ? dice.of(kForeign) : dice.of(kNouns)});
    item.title += dice.oneIn(3) ? "..." : "";
    item.keywords = {std::string(dice.of(kVerbs)), std::string(dice.of(kNouns))};
    item.id = "menu:" + item.title;
    item.kind = LaunchItem::Kind::menuItem;
    return item;
}

LaunchItem document(Dice& dice) {
    constexpr std::array<std::string_view, 8> kEndings = {".txt", ".pdf", ".png", ".cpp",
                                                          ".md",  ".odt", ".csv", ".html"};
    LaunchItem item;
    const char separator = "-_ ."[dice.below(4)];
    item.title = joined({dice.oneIn(14) ? dice.of(kForeign) : dice.of(kAdjectives), dice.of(kNouns),
                         madeUpName(dice), std::to_string(1990 + dice.below(40))},
                        separator);
    item.title += dice.of(kEndings);
    item.id = "script:/home/user/Documents/" + item.title;
    item.kind = LaunchItem::Kind::script;
    return item;
}

LaunchItem pane(Dice& dice) {
    LaunchItem item;
    item.title = joined({dice.oneIn(14) ? dice.of(kForeign) : dice.of(kNouns), dice.of(kNouns)});
    item.keywords = {"settings", "preferences", std::string(dice.of(kNouns))};
    item.id = "pane:" + item.title;
    item.kind = LaunchItem::Kind::command;
    return item;
}

LaunchItem address(Dice& dice) {
    LaunchItem item;
    item.title = joined({madeUpName(dice), dice.of(kNouns)});
    item.keywords = {text::lowercased(madeUpName(dice)) + "." + std::string(dice.of(kDomains))};
    item.id = "alias:" + item.title;
    item.kind = LaunchItem::Kind::url;
    return item;
}

std::vector<LaunchItem> made(std::size_t count, const std::function<LaunchItem()>& make) {
    std::vector<LaunchItem> items;
    items.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        items.push_back(make());
        items.back().id += "#" + std::to_string(i);
    }
    return items;
}

const LaunchItem& anyItem(const std::vector<std::vector<LaunchItem>>& sources, Dice& dice) {
    return dice.of(dice.of(sources));
}

/// Every third or so of the letters, in order.
std::string scattered(std::string_view title, Dice& dice) {
    std::string letters;
    for (const auto character : text::characterViews(title)) {
        letters += dice.oneIn(3) ? character : "";
    }
    return letters;
}

std::string_view word(std::string_view title, std::size_t index) {
    const auto words = text::split(title, ' ');
    return words[std::min(index, words.size() - 1)];
}

std::string query(const LaunchItem& item, Dice& dice) {
    const std::string& title = item.title;
    switch (dice.below(10)) {
    case 0:
        return acronym(title);
    case 1:
        return scattered(title, dice);
    case 2:
        return std::string(word(title, 1));
    case 3:
        return item.keywords.empty() ? title : dice.of(item.keywords);
    case 4:
        return std::string(word(title, 1)) + " " + std::string(word(title, 0));
    case 5:
        return std::string(word(title, 0)) + " " +
               std::string(item.keywords.empty() ? "x" : item.keywords.back());
    case 6:
        return dice.oneIn(3) ? "qzxj" + madeUpName(dice) : madeUpName(dice);
    default:
        return title;
    }
}

} // namespace

std::vector<std::vector<LaunchItem>> sources(std::size_t count) {
    Dice dice(20010101);
    Words vendors;
    for (std::size_t i = 0; i < 20 + count / 40; ++i) {
        vendors.push_back(text::lowercased(madeUpName(dice)));
    }
    const auto part = [&](std::size_t percent) { return count * percent / 100; };
    return {made(part(45), [&] { return application(dice, vendors); }),
            made(part(25), [&] { return menuItem(dice); }),
            made(part(20), [&] { return document(dice); }),
            made(part(5), [&] { return pane(dice); }),
            made(part(5), [&] { return address(dice); })};
}

Catalogue catalogue(std::size_t count) {
    Catalogue lists;
    for (auto& items : sources(count)) {
        lists.push_back(PreparedList::make(std::move(items)));
    }
    return lists;
}

std::vector<std::string> queries(const std::vector<std::vector<LaunchItem>>& sources,
                                 std::size_t count) {
    Dice dice(7);
    std::vector<std::string> result;
    while (result.size() < count) {
        const std::string whole = text::lowercased(query(anyItem(sources, dice), dice));
        const std::size_t letters = 3 + dice.below(9);
        std::string typed;
        std::size_t length = 0;
        for (const auto character : text::characterViews(whole)) {
            typed += length++ < letters ? character : "";
        }
        if (length >= 2) {
            result.push_back(typed);
        }
    }
    return result;
}

std::vector<std::string> keystrokes(const std::vector<std::string>& queries) {
    std::vector<std::string> result;
    for (const std::string& query : queries) {
        std::string typed;
        for (const auto character : text::characterViews(query)) {
            typed += character;
            result.push_back(typed);
        }
    }
    return result;
}

void use(UsageStore& usage, MemoryMainLoop& loop,
         const std::vector<std::vector<LaunchItem>>& sources, std::size_t count) {
    constexpr double kTwoMonths = 60.0 * 86400;
    Dice dice(11);
    for (std::size_t i = 0; i < count; ++i) {
        const LaunchItem& item = anyItem(sources, dice);
        const std::size_t runs = dice.oneIn(5) ? 1 + dice.below(8) : 1;
        for (std::size_t run = 0; run < runs; ++run) {
            usage.record(item.id, text::lowercased(word(item.title, 0)));
        }
        loop.setNow(loop.now() + Seconds(kTwoMonths / static_cast<double>(count)));
    }
}

} // namespace pello::bench::SearchCorpus
