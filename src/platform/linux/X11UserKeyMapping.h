#pragma once

#include "platform/Shell.h"
#include "platform/linux/X11HyperKey.h"

#include <QSocketNotifier>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// What /usr/bin/hidutil is elsewhere: it gets and sets the remaps of keys, in that tool's
/// arguments and texts.
///
/// Of the remaps one takes effect here: Caps Lock to F18 makes Caps Lock the Hyper key. The others
/// are only remembered, and given back. Needs Qt's event loop for keyboards that are plugged in
/// later. Main thread only.
class X11UserKeyMapping {
public:
    /// Where the tool that this stands for lives.
    static constexpr const char* kToolPath = "/usr/bin/hidutil";

    /// `folder` holds a file for as long as Caps Lock is changed, one for each display; best one
    /// that lasts as long as the session.
    explicit X11UserKeyMapping(const std::filesystem::path& folder);
    ~X11UserKeyMapping();
    X11UserKeyMapping(const X11UserKeyMapping&) = delete;
    X11UserKeyMapping& operator=(const X11UserKeyMapping&) = delete;

    /// Takes `property --get UserKeyMapping` and `property --set {"UserKeyMapping":[...]}`. Waits
    /// for the server. Status 1 tells that nothing was changed.
    [[nodiscard]] Shell::Result run(const std::vector<std::string>& arguments);

    /// Undoes what an instance before left behind, killed or gone without undoing it. Only once no
    /// other instance runs here.
    void takeOver();

private:
    struct Remap {
        std::int64_t source = 0;
        std::int64_t destination = 0;
        friend bool operator==(const Remap&, const Remap&) = default;
    };
    using Remaps = std::vector<Remap>;
    struct DeleteLater {
        void operator()(QSocketNotifier* notifier) const;
    };

    [[nodiscard]] static std::optional<Remaps> parse(const std::string& payload);
    [[nodiscard]] Shell::Result listing() const;
    [[nodiscard]] Shell::Result set(Remaps remaps);
    [[nodiscard]] Shell::Result answer(const std::vector<std::string>& arguments);
    void watchKeyboards();
    void adoptKeyboards();

    X11HyperKey hyper_;
    Remaps others_;
    std::unique_ptr<QSocketNotifier, DeleteLater> notifier_;
};

} // namespace pello
