#pragma once

#include "base/LatestOnly.h"
#include "platform/MainLoop.h"
#include "search/PreparedList.h"
#include "search/UsageStore.h"
#include "sources/GlyphTable.h"
#include "sources/SystemActions.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace pello {

/// Emoji and symbols as items, which are inserted where the user types.
///
/// Emoji are listed without skin tones. Those in a skin tone are offered as variants, and once one
/// was chosen it is found like any other. Main thread only.
class GlyphCatalogue {
public:
    /// How many glyphs are shown at once, whatever other searches show: they are looked through
    /// rather than picked from the first rows.
    static constexpr std::size_t kMaximumResults = 60;

    /// `loop` must outlive the catalogue, `actions` the items.
    GlyphCatalogue(MainLoop& loop, SystemActions& actions);

    /// Makes the items on a worker thread. Before, there are none.
    void prepare();

    /// What glyph searches search: all glyphs in their order, and the variants that `usage` knows.
    [[nodiscard]] const Catalogue& lists(const UsageStore& usage) const;

    /// The glyphs that `text` finds, best first, `kMaximumResults` in all; all that can be browsed
    /// when it is empty.
    [[nodiscard]] std::vector<SearchResult> results(std::string_view text,
                                                    const UsageStore& usage) const;

    /// Glyphs to choose from before anything is searched for: the learned ones, the most used
    /// first, and then all others in their own order, `kMaximumResults` in all.
    [[nodiscard]] std::vector<SearchResult> browsable(const UsageStore& usage) const;

    /// `item`, or what it is a variant of, in the five skin tones, the lightest first; nothing
    /// unless it is an emoji that has them.
    [[nodiscard]] std::vector<LaunchItemRef> variants(const LaunchItem& item) const;

    /// Called when the items have been made.
    std::function<void()> onPrepared;

private:
    [[nodiscard]] std::vector<LaunchItem> learnedVariants(const UsageStore& usage) const;

    MainLoop& loop_;
    SystemActions& actions_;
    LatestOnly preparations_;
    std::shared_ptr<const PreparedList> items_;
    std::vector<Glyph> tonable_;
    mutable Catalogue lists_;            // `items_`, and the variants as of `revision_`
    mutable std::uint64_t revision_ = 0; // of the learned data; 0 is none
};

} // namespace pello
