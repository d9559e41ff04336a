#include "app/LearnedCommand.h"

#include "app/HeadlessPlatform.h"
#include "app/StoreSession.h"
#include "platform/linux/UtcText.h"
#include "search/UsageStore.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

namespace pello {
namespace {

/// What is known of one item.
struct Knowledge {
    std::string id;
    UsageStore::Record record;
    /// Each in quotation marks, with blanks between them.
    std::string texts;
};

std::string quoted(const std::string& text) {
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

/// Last used first. An item that texts lead to need not have a record.
std::vector<Knowledge> knowledgeOf(const UsageStore& usage) {
    std::map<std::string, Knowledge, std::less<>> items;
    for (const auto& [id, record] : usage.records()) {
        items.insert_or_assign(id, Knowledge{.id = id, .record = record, .texts = {}});
    }
    for (const auto& [text, id] : usage.bindings()) {
        Knowledge& item = items[id];
        item.id = id;
        item.texts += (item.texts.empty() ? "" : " ") + quoted(text);
    }
    std::vector<Knowledge> sorted;
    sorted.reserve(items.size());
    for (auto& [id, item] : items) {
        sorted.push_back(std::move(item));
    }
    std::ranges::stable_sort(sorted, [](const Knowledge& left, const Knowledge& right) {
        return left.record.lastUsed > right.record.lastUsed;
    });
    return sorted;
}

int list(const UsageStore& usage) {
    const auto items = knowledgeOf(usage);
    for (const Knowledge& item : items) {
        const bool hasRun = item.record.count > 0;
        std::cout << item.id << '\t' << item.record.count << '\t'
                  << (hasRun ? utcText(item.record.lastUsed, "%Y-%m-%dT%H:%MZ") : "") << '\t'
                  << item.texts << '\n';
    }
    return items.empty() ? ExitStatus::kNothing : ExitStatus::kSuccess;
}

int forget(UsageStore& usage, const std::string& id, StoreSession& session) {
    if (!usage.forget(id)) {
        std::cerr << "pello: nothing was learned about \"" << id << "\"\n";
        return ExitStatus::kNothing;
    }
    return session.finish();
}

} // namespace

int run(const LearnedCommand& command) {
    StoreSession session;
    UsageStore usage(session.defaults(), session.loop());
    return command.action == LearnedCommand::Action::list ? list(usage)
                                                          : forget(usage, command.id, session);
}

} // namespace pello
