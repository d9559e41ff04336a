#pragma once

#include "base/Signal.h"
#include "platform/IconSource.h"
#include "platform/MainLoop.h"
#include "ui/icons/IconTheme.h"

#include <QCache>
#include <QImage>
#include <QString>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

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
               std::shared_ptr<const IconTheme> theme);
    IconLoader(const IconLoader&) = delete;
    IconLoader& operator=(const IconLoader&) = delete;

    /// The icon of the application at `path`, to fill a square of `pixels`.
    [[nodiscard]] Answer ofFile(const std::filesystem::path& path, int pixels);

    /// The theme's icon `name`, to fill a square of `pixels`.
    [[nodiscard]] Answer named(std::string_view name, int pixels);

    /// Looks again for images that were missing: applications come with icons.
    void forgetMissing();

    /// Some image arrived, or turned out to be missing.
    Signal<> loaded;

private:
    using Find = std::function<QImage()>;

    Answer answer(const std::string& key, const Find& find);
    void store(const QString& key, const QImage& image);

    MainLoop& loop_;
    std::shared_ptr<const IconSource> source_;
    std::shared_ptr<const IconTheme> theme_;
    QCache<QString, Answer> cache_; // its cost is in bytes
    std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

} // namespace pello
