#pragma once

#include "Stopwatch.h"
#include "search/SearchWork.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace pello::bench {

/// How thoroughly to measure.
struct Effort {
    std::size_t queries = 200;    // typed letter by letter
    std::size_t runs = 15;        // of each keystroke, the least counts
    std::size_t builds = 5;       // of each catalogue, likewise
    std::size_t naiveSample = 60; // keystrokes that the naive search is timed on
    std::size_t peerSample = 40;  // keystrokes that the other programs are timed on
    std::size_t peerRuns = 3;
    std::size_t learned = 300; // items that ran before
};

/// What was measured on a catalogue of one size.
struct Measurement {
    std::size_t items = 0;
    Times keystrokes;      // the whole search, boosts and highlights included
    Times firstKeystrokes; // those of one letter
    SearchWork work;       // summed up over all keystrokes
    double buildPerItem = 0;
    double bytesPerItem = 0;
    std::optional<double> rebuild; // of one source of 1,000 items
    /// The engine's time on the very keystrokes that the next were timed on, and theirs.
    double sampledByEngine = 0;
    std::optional<double> naive;
    std::optional<double> naiveAscii;
    double sampledByEngineForPeers = 0;
    std::optional<double> fzf;
    std::optional<double> fzy;
};

/// Measures a catalogue of `items`. Above 10,000 items the naive search is timed on 10,000 and
/// reckoned up, as it takes the same for each.
[[nodiscard]] Measurement measure(std::size_t items, const Effort& effort);

} // namespace pello::bench
