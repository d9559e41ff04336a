#include "sources/QuickActions.h"

#include "base/Text.h"
#include "sources/TypedAddress.h"

#include <optional>
#include <string>
#include <utility>

namespace pello {
namespace {

using Kind = LaunchItem::Kind;
using SymbolIcon = LaunchItem::SymbolIcon;

std::string_view symbolOf(ConversionResult::Kind kind) {
    switch (kind) {
    case ConversionResult::Kind::unit:
        return "arrow.left.arrow.right";
    case ConversionResult::Kind::time:
        return "clock";
    case ConversionResult::Kind::date:
        break;
    }
    return "calendar";
}

std::function<void()> opening(Workspace& workspace, std::string address) {
    return [&workspace, address = std::move(address)] { workspace.openAddress(address); };
}

std::function<void()> copying(Pasteboard& pasteboard, std::string text) {
    return [&pasteboard, text = std::move(text)] { pasteboard.setText(text); };
}

std::optional<LaunchItem> bangItem(std::string_view query, const PelloSettings& settings,
                                   Workspace& workspace, Pasteboard& pasteboard) {
    const auto match = Bang::match(query, settings.bangs.get());
    if (!match || (match->arguments.empty() && match->bang.wantsQuery())) {
        return std::nullopt;
    }
    const auto& [bang, arguments] = *match;
    const auto address =
        bang.url(arguments, [&pasteboard] { return pasteboard.text().value_or(""); });
    if (!address) {
        return std::nullopt;
    }
    const std::string rest(arguments);
    return LaunchItem{
        .id = "bang:" + bang.keyword + ':' + rest,
        .title = rest.empty() ? "Open " + bang.name : bang.name + ": " + rest,
        .subtitle = address,
        .kind = Kind::bang,
        .icon = SymbolIcon{"arrow.up.right.square"},
        .accessory = bang.keyword,
        .isEphemeral = true,
        .run = opening(workspace, *address),
    };
}

std::optional<LaunchItem> scriptItem(std::string_view query, const ScriptsIndex& scripts) {
    const auto match = ScriptCommand::match(query, scripts.commands());
    const bool takesArgument = match && match->command.argument != ScriptCommand::Argument::none;
    if (!takesArgument || match->argument.empty()) {
        return std::nullopt;
    }
    return scripts.itemWithArgument(match->command, match->argument);
}

LaunchItem calculationItem(const std::string& result, std::string_view query,
                           Pasteboard& pasteboard) {
    return {
        .id = "calc:" + result,
        .title = result,
        .subtitle = std::string(text::trimmingBlanks(query)),
        .kind = Kind::calculation,
        .icon = SymbolIcon{"equal.square"},
        .accessory = "Copy",
        .isEphemeral = true,
        .run = copying(pasteboard, result),
    };
}

LaunchItem conversionItem(const ConversionResult& result, Pasteboard& pasteboard) {
    return {
        .id = "convert:" + std::string(rawValue(result.kind)) + ':' + result.title,
        .title = result.title,
        .subtitle = result.subtitle,
        .kind = Kind::calculation,
        .icon = SymbolIcon{std::string(symbolOf(result.kind))},
        .accessory = "Copy",
        .isEphemeral = true,
        .run = copying(pasteboard, result.title),
    };
}

std::optional<LaunchItem> addressItem(std::string_view query, Workspace& workspace) {
    const auto address = detectURL(query);
    if (!address) {
        return std::nullopt;
    }
    return LaunchItem{
        .id = "url:" + *address,
        .title = *address,
        .subtitle = "Open in your browser",
        .kind = Kind::url,
        .icon = SymbolIcon{"globe"},
        .accessory = "Link",
        .isEphemeral = true,
        .run = opening(workspace, *address),
    };
}

std::optional<LaunchItem> webSearchItem(std::string_view query, WebSearchEngine engine,
                                        Workspace& workspace) {
    const std::string wanted(text::trimmingBlanks(query));
    const auto address = searchAddress(engine, wanted);
    if (wanted.empty() || !address) {
        return std::nullopt;
    }
    return LaunchItem{
        .id = "search:" + wanted,
        .title = "Search for “" + wanted + "”",
        .subtitle = std::string(displayName(engine)),
        .kind = Kind::webSearch,
        .icon = SymbolIcon{"magnifyingglass"},
        .accessory = "Web",
        .isEphemeral = true,
        .run = opening(workspace, *address),
    };
}

} // namespace

QuickActions::QuickActions(MainLoop& loop, Workspace& workspace, Pasteboard& pasteboard)
    : loop_(loop), workspace_(workspace), pasteboard_(pasteboard) {}

void QuickActions::prepare(const Surroundings& surroundings) {
    wanted_ = surroundings;
    prepareUnlessSettledIn({});
}

void QuickActions::keepUp() {
    if (evaluators_ && !isPreparing_) {
        prepareUnlessSettledIn(evaluators_->surroundings);
    }
}

void QuickActions::prepareUnlessSettledIn(const Surroundings& current) {
    using Prepared = std::shared_ptr<const Evaluators>;
    isPreparing_ = true;
    std::function<void(Prepared)> done = [this](Prepared evaluators) {
        isPreparing_ = false;
        if (!evaluators) {
            return;
        }
        evaluators_ = std::move(evaluators);
        if (onChanged) {
            onChanged();
        }
    };
    auto work = [wanted = wanted_, current] {
        const Surroundings settled = wanted.settled();
        return settled == current ? nullptr : Evaluators::prepared(settled);
    };
    loop_.background(std::move(work), preparations_.wrap(std::move(done)));
}

std::vector<LaunchItemRef> QuickActions::items(std::string_view query,
                                               const PelloSettings& settings,
                                               const ScriptsIndex* scripts) const {
    std::vector<LaunchItemRef> items;
    const auto add = [&items](std::optional<LaunchItem> item) {
        if (item) {
            items.push_back(std::make_shared<const LaunchItem>(std::move(*item)));
        }
    };
    add(bangItem(query, settings, workspace_, pasteboard_));
    if (scripts != nullptr) {
        add(scriptItem(query, *scripts));
    }
    if (evaluators_) {
        if (const auto result = evaluators_->calculator.evaluate(query)) {
            add(calculationItem(*result, query, pasteboard_));
        }
        for (const auto& result : evaluators_->conversions.results(query, loop_.now())) {
            add(conversionItem(result, pasteboard_));
        }
    }
    add(addressItem(query, workspace_));
    add(webSearchItem(query, settings.searchEngine.get(), workspace_));
    return items;
}

} // namespace pello
