#pragma once

#include "search/PreparedList.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pello::bench {

/// A fuzzy finder that filters lines on its standard input, run as a process.
class Peer {
public:
    /// The arguments before the query, the program's name first.
    explicit Peer(std::vector<std::string> command) : command_(std::move(command)) {}

    [[nodiscard]] bool isInstalled() const;

    /// The processor time, in seconds, that matching `query` on the lines of `file` takes: the
    /// least of `runs` runs, less the least of a query that no line matches. Nothing when the
    /// program cannot be run.
    [[nodiscard]] std::optional<double> time(const std::string& query,
                                             const std::filesystem::path& file, std::size_t runs);

private:
    [[nodiscard]] std::optional<double> run(const std::string& query,
                                            const std::filesystem::path& file) const;
    [[nodiscard]] std::optional<double>
    least(const std::string& query, const std::filesystem::path& file, std::size_t runs) const;

    std::vector<std::string> command_;
    std::filesystem::path baselineFile_;
    double baseline_ = 0;
};

/// The texts of the catalogue's items, title and keywords in a line.
void writeTexts(const Catalogue& catalogue, const std::filesystem::path& file);

} // namespace pello::bench
