#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// What the platform says about one installed application.
struct BundleDescription {
    /// The name it shows to users; absent when it names none (its file name serves then).
    std::optional<std::string> name;
    /// Its identifier in the platform's reverse-domain form, where it has one.
    std::optional<std::string> bundleIdentifier;
    /// Further words that users may look for: other names, what it is for.
    std::vector<std::string> keywords;

    friend bool operator==(const BundleDescription&, const BundleDescription&) = default;
};

/// How installed applications look on this platform: what a candidate is called, where the standard
/// folders are, and what one says about itself.
///
/// Reads the file system only. Any thread, several at a time.
class BundleReader {
public:
    virtual ~BundleReader() = default;

    /// The path extension of an application, without the dot.
    [[nodiscard]] virtual std::string_view candidateExtension() const = 0;

    /// The folders that are always searched, in order of precedence; they need not exist.
    [[nodiscard]] virtual std::vector<std::filesystem::path> standardFolders() const = 0;

    /// Applications that are listed although no folder holds them; they need not exist.
    [[nodiscard]] virtual std::vector<std::filesystem::path> alwaysListed() const = 0;

    /// What makes two candidates the same application: of those with equal identities only the
    /// first found counts. `candidate` was found below the searched folder `root`.
    [[nodiscard]] virtual std::string identity(const std::filesystem::path& root,
                                               const std::filesystem::path& candidate) const = 0;

    /// What the candidate says about itself; nothing when it is unreadable or not meant to be
    /// listed here.
    [[nodiscard]] virtual std::optional<BundleDescription>
    describe(const std::filesystem::path& candidate) const = 0;
};

} // namespace pello
