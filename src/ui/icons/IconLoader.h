#pragma once

#include "base/Date.h"
#include "base/Signal.h"
#include "platform/IconSource.h"
#include "platform/MainLoop.h"
#include "ui/icons/SharedIconTheme.h"

#include <QCache>
#include <QImage>
#include <QString>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// Loads the images of rows off the main thread and keeps those shown last.
///
/// Main thread only. Nothing here waits: an image that is not there yet is announced by `loaded`.
class IconLoader {
public:
    enum class State { loading, ready, missing };

    /// What there is of an image right now; null unless ready.
    struct Answer {
        State state = State::loading;
        QImage image;
    };

    /// `loop` must outlive the loader. Without a `source`, applications have no icons.
    IconLoader(MainLoop& loop, std::shared_ptr<const IconSource> source,
               std::shared_ptr<SharedIconTheme> theme);
    IconLoader(const IconLoader&) = delete;
    IconLoader& operator=(const IconLoader&) = delete;

    /// The icon of the application at `path`, to fill a square of `pixels`.
    [[nodiscard]] Answer ofFile(const std::filesystem::path& path, int pixels);

    /// The shape of the theme's icon `name` in white, to fill a square of `pixels`.
    [[nodiscard]] Answer symbol(std::string_view name, int pixels);

    /// Begins at once with what was asked for, instead of after this turn of the main loop.
    void begin();

    /// Looks again for images that were missing: applications come with icons. Not more often than
    /// they come.
    void forgetMissing();

    /// Images arrived, or turned out to be missing.
    Signal<> loaded;

private:
    using Find = std::function<QImage()>;
    struct Request {
        QString key;
        Find find;
    };
    struct Found {
        QString key;
        QImage image;
    };

    Answer answer(const std::string& key, Find find);
    void store(const std::vector<Found>& found);

    MainLoop& loop_;
    std::shared_ptr<const IconSource> source_;
    std::shared_ptr<SharedIconTheme> theme_;
    std::vector<Request> requests_; // of this turn, loaded together so that they are painted once
    Date forgotten_{};              // when missing images were last given another chance
    QCache<QString, Answer> cache_; // its cost is in bytes
    std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

} // namespace pello
