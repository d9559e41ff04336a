#include "app/QueryReport.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>

namespace pello {
namespace {

using Json = nlohmann::ordered_json;

std::string number(double value) {
    std::array<char, 64> buffer = {};
    const int length = std::snprintf(buffer.data(), buffer.size(), "%.2f", value);
    return {buffer.data(), static_cast<std::size_t>(length)};
}

std::string matchLine(const SearchExplanation& row) {
    std::string line = "    matched: " + std::string(originName(row));
    if (row.match) {
        line += " \"" + row.match->text + "\", score " + number(row.match->score);
    }
    return line + '\n';
}

std::string learnedLine(const UsageStore::Boost& boost) {
    if (boost.sum() == 0) {
        return "    learned: nothing\n";
    }
    std::string line =
        "    learned: recency " + number(boost.recency) + " x frequency " + number(boost.frequency);
    if (boost.binding > 0) {
        line += ", last choice for this text +" + number(boost.binding);
    }
    return line + '\n';
}

std::string_view tieWords(SearchExplanation::OrderedBy order) {
    switch (order) {
    case SearchExplanation::OrderedBy::score:
        return "";
    case SearchExplanation::OrderedBy::kind:
        return "; scored as the row above, after it by kind";
    case SearchExplanation::OrderedBy::name:
        return "; scored as the row above, after it by name";
    case SearchExplanation::OrderedBy::catalogue:
        return "; scored as the row above, after it by its place in the catalogue";
    }
    return "";
}

std::string placeLine(const SearchExplanation& row) {
    std::string line = "    in all: " + number(row.result.score);
    line += ", kind priority " + std::to_string(row.kindPriority);
    return line + std::string(tieWords(row.orderedBy)) + '\n';
}

std::string textRow(const SearchExplanation& row, const QueryCommand& command) {
    const LaunchItem& item = *row.result.item;
    std::string lines = item.title;
    if (item.subtitle) {
        lines += '\t' + *item.subtitle;
    }
    lines += '\n';
    if (command.explains) {
        lines += matchLine(row) + learnedLine(row.boost) + placeLine(row);
    }
    return lines;
}

Json explanation(const SearchExplanation& row) {
    Json parts = {{"origin", originName(row)},        {"recency", row.boost.recency},
                  {"frequency", row.boost.frequency}, {"binding", row.boost.binding},
                  {"kindPriority", row.kindPriority}, {"orderedBy", orderName(row.orderedBy)}};
    if (row.match) {
        parts["matchedText"] = row.match->text;
        parts["matchScore"] = row.match->score;
    }
    return parts;
}

Json jsonRow(const SearchExplanation& row, const QueryCommand& command) {
    const LaunchItem& item = *row.result.item;
    Json json = {{"id", item.id},
                 {"title", item.title},
                 {"subtitle", item.subtitle ? Json(*item.subtitle) : Json()},
                 {"kind", kindName(item.kind)},
                 {"accessory", item.accessory ? Json(*item.accessory) : Json()},
                 {"score", row.result.score},
                 {"titleMatches", row.result.titleMatches},
                 {"path", item.revealURL ? Json(item.revealURL->string()) : Json()}};
    if (const auto* glyph = std::get_if<LaunchItem::TextIcon>(&item.icon)) {
        json["glyph"] = glyph->text;
    }
    if (command.explains) {
        json["explanation"] = explanation(row);
    }
    return json;
}

} // namespace

std::string queryReport(std::span<const SearchExplanation> rows, const QueryCommand& command) {
    if (command.format == QueryCommand::Format::json) {
        Json results = Json::array();
        for (const SearchExplanation& row : rows) {
            results.push_back(jsonRow(row, command));
        }
        // File names need not be UTF-8, JSON must be.
        return Json{{"results", results}}.dump(2, ' ', false, Json::error_handler_t::replace) +
               '\n';
    }
    std::string lines;
    for (const SearchExplanation& row : rows) {
        lines += textRow(row, command);
    }
    return lines;
}

} // namespace pello
