#pragma once

#include "core/items/LaunchItem.h"
#include "platform/memory/MemoryMainLoop.h"
#include "search/PreparedList.h"
#include "search/UsageStore.h"

#include <cstddef>
#include <string>
#include <vector>

/// A large catalogue as a real desktop might have it, the same on every machine: what is measured
/// on it, and the work that a search of it takes, can be compared from run to run.
namespace pello::bench::SearchCorpus {

/// So many items, by source: applications with the parts of their identifiers, acronyms and
/// categories as keywords, menu items, documents, settings panes, scripts and addresses. One in
/// fourteen is not ASCII.
[[nodiscard]] std::vector<std::vector<LaunchItem>> sources(std::size_t count);

/// The sources, prepared.
[[nodiscard]] Catalogue catalogue(std::size_t count);

/// What is typed into a search of them: starts of titles, initials, inner words, keywords,
/// scattered letters, two words, and words that nothing has.
[[nodiscard]] std::vector<std::string> queries(const std::vector<std::vector<LaunchItem>>& sources,
                                               std::size_t count);

/// The queries letter by letter, as the field holds them after each key.
[[nodiscard]] std::vector<std::string> keystrokes(const std::vector<std::string>& queries);

/// Has `count` items run in the course of two months, most of them once, some often, and each for
/// a query of its own.
void use(UsageStore& usage, MemoryMainLoop& loop,
         const std::vector<std::vector<LaunchItem>>& sources, std::size_t count);

} // namespace pello::bench::SearchCorpus
