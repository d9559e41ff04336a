#include "sources/GlyphCatalogue.h"

#include "base/Text.h"
#include "search/SearchEngine.h"
#include "sources/SkinTones.h"

#include <algorithm>
#include <ranges>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace pello {
namespace {

constexpr std::size_t kSubtitleKeywords = 4;
constexpr std::string_view kIDPrefix = "glyph:";
// How the code points of all five tones begin.
constexpr std::string_view kToneInID = "-1f3f";

struct Inserted {
    std::string text;
    std::string name;
    std::string_view keywords;
};

LaunchItem itemOf(Inserted glyph, SystemActions& actions) {
    LaunchItem item = {.id = glyphID(glyph.text),
                       .title = std::move(glyph.name),
                       .kind = LaunchItem::Kind::command,
                       .icon = LaunchItem::TextIcon{glyph.text},
                       .accessory = "Paste"};
    item.keywords.push_back(item.title); // a name that is typed whole counts no less than a keyword
    std::string subtitle;
    std::size_t told = 0;
    for (const std::string_view keyword : text::split(glyph.keywords, Glyph::kSeparator)) {
        const bool isNews = item.title.find(keyword) == std::string::npos;
        if (isNews && told < kSubtitleKeywords) {
            subtitle += (told == 0 ? "" : ", ") + std::string(keyword);
            ++told;
        }
        item.keywords.emplace_back(keyword);
    }
    if (!subtitle.empty()) {
        item.subtitle = std::move(subtitle);
    }
    item.run = [&actions, text = std::move(glyph.text)] { actions.insert(text); };
    return item;
}

std::vector<LaunchItem> variantsOf(const Glyph& glyph, SystemActions& actions) {
    std::vector<LaunchItem> items;
    items.reserve(kSkinTones);
    for (TonedGlyph& toned : inSkinTones(glyph)) {
        items.push_back(itemOf({.text = std::move(toned.text),
                                .name = std::move(toned.name),
                                .keywords = glyph.keywords},
                               actions));
    }
    return items;
}

/// Whether the item `id` is `glyph` itself or one of its variants.
bool isInAnyTone(const Glyph& glyph, std::string_view id) {
    return id == glyphID(glyph.text) ||
           (id.find(kToneInID) != std::string_view::npos &&
            std::ranges::any_of(inSkinTones(glyph), [&](const TonedGlyph& variant) {
                return id == glyphID(variant.text);
            }));
}

/// The ids of learned variants.
std::vector<std::string_view> learnedToneIDs(const UsageStore::Records& records) {
    std::vector<std::string_view> ids;
    for (auto each = records.lower_bound(kIDPrefix);
         each != records.end() && each->first.starts_with(kIDPrefix); ++each) {
        if (each->first.find(kToneInID) != std::string::npos) {
            ids.push_back(each->first);
        }
    }
    return ids;
}

/// Whether one of `ids` may be a variant of `glyph`: it begins with the same person.
bool mayBeAmong(const std::vector<std::string_view>& ids, const Glyph& glyph) {
    const std::string id = glyphID(glyph.text);
    const std::string_view person = std::string_view(id).substr(0, id.find('-'));
    return std::ranges::any_of(ids, [&](std::string_view each) {
        return each.starts_with(person) && each.substr(person.size()).starts_with(kToneInID);
    });
}

} // namespace

GlyphCatalogue::GlyphCatalogue(MainLoop& loop, SystemActions& actions)
    : loop_(loop), actions_(actions), items_(PreparedList::make({})) {}

void GlyphCatalogue::prepare() {
    struct Prepared {
        std::shared_ptr<const PreparedList> items;
        std::vector<Glyph> tonable;
    };
    auto work = [&actions = actions_] {
        std::vector<LaunchItem> items;
        std::vector<Glyph> tonable;
        for (const Glyph& glyph : glyphTable()) {
            items.push_back(itemOf({.text = std::string(glyph.text),
                                    .name = std::string(glyph.name),
                                    .keywords = glyph.keywords},
                                   actions));
            if (glyph.tonePlaces > 0) {
                tonable.push_back(glyph);
            }
        }
        return Prepared{.items = PreparedList::make(std::move(items)),
                        .tonable = std::move(tonable)};
    };
    std::function<void(Prepared)> done = [this](Prepared prepared) {
        items_ = std::move(prepared.items);
        tonable_ = std::move(prepared.tonable);
        revision_ = 0;
        if (onPrepared) {
            onPrepared();
        }
    };
    loop_.background(std::move(work), preparations_.wrap(std::move(done)));
}

const Catalogue& GlyphCatalogue::lists(const UsageStore& usage) const {
    if (revision_ != usage.revision()) {
        revision_ = usage.revision();
        auto learned = learnedVariants(usage);
        const auto isSame = lists_.size() == 2 && lists_.front() == items_ &&
                            std::ranges::equal(lists_.back()->items(), learned);
        if (!isSame) { // published lists are remembered by the search
            lists_ = {items_, PreparedList::make(std::move(learned))};
        }
    }
    return lists_;
}

std::vector<LaunchItem> GlyphCatalogue::learnedVariants(const UsageStore& usage) const {
    std::vector<LaunchItem> learned;
    const auto ids = learnedToneIDs(usage.records());
    const auto isCandidate = [&](const Glyph& glyph) { return mayBeAmong(ids, glyph); };
    for (const Glyph& glyph : tonable_ | std::views::filter(isCandidate)) {
        for (LaunchItem& variant : variantsOf(glyph, actions_)) {
            if (usage.records().contains(variant.id)) {
                learned.push_back(std::move(variant));
            }
        }
    }
    return learned;
}

std::vector<SearchResult> GlyphCatalogue::results(std::string_view text,
                                                  const UsageStore& usage) const {
    return text.empty() ? browsable(usage)
                        : SearchEngine::results(text, lists(usage), {}, usage, kMaximumResults);
}

std::vector<SearchResult> GlyphCatalogue::browsable(const UsageStore& usage) const {
    const Catalogue& glyphs = lists(usage);
    auto rows = SearchEngine::results("", glyphs, {}, usage, kMaximumResults);
    std::unordered_set<const LaunchItem*> learned;
    for (const SearchResult& row : rows) {
        learned.insert(row.item.get());
    }
    for (const auto& list : glyphs) {
        for (std::size_t i = 0; i < list->items().size(); ++i) {
            if (!learned.contains(&list->items()[i])) {
                rows.push_back({.item = list->ref(i), .score = 0, .titleMatches = {}});
            }
        }
    }
    return rows;
}

std::vector<LaunchItemRef> GlyphCatalogue::variants(const LaunchItem& item) const {
    std::vector<LaunchItemRef> variants;
    const auto found = std::ranges::find_if(
        tonable_, [&](const Glyph& glyph) { return isInAnyTone(glyph, item.id); });
    if (found != tonable_.end()) {
        for (LaunchItem& variant : variantsOf(*found, actions_)) {
            variants.push_back(std::make_shared<const LaunchItem>(std::move(variant)));
        }
    }
    return variants;
}

} // namespace pello
