#include "ui/icons/IconLoader.h"

#include <QImageReader>
#include <QPainter>

#include <algorithm>
#include <chrono>
#include <utility>

namespace pello {

namespace {

namespace fs = std::filesystem;

constexpr qsizetype kCacheBytes = 4 << 20;
constexpr qsizetype kEntryBytes = 128; // what an entry without an image costs, about
constexpr int kAllocationMegabytes = 64;
constexpr std::chrono::seconds kMissingFor(30); // before an image is looked for again

/// The image in `file`, at most `pixels` wide and high; null when it cannot be read. Any thread.
QImage decode(const fs::path& file, int pixels) {
    QImageReader reader(QString::fromStdString(file.string()));
    reader.setDecideFormatFromContent(true);
    const QSize wanted(pixels, pixels);
    if (const QSize size = reader.size(); size.isValid()) {
        const bool isDrawing = reader.format().startsWith("svg");
        if (isDrawing || size.width() > pixels || size.height() > pixels) {
            reader.setScaledSize(size.scaled(wanted, Qt::KeepAspectRatio));
        }
    }
    return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// The image that an application, or somebody else, names `name`.
QImage imageNamed(const IconTheme& theme, const std::string& name, int pixels) {
    const fs::path path(name);
    if (path.is_absolute()) {
        return decode(path, pixels);
    }
    auto file = theme.find(name, pixels);
    if (!file && path.has_extension()) {
        file = theme.find(path.stem().string(), pixels); // a common mistake in desktop entries
    }
    return file ? decode(*file, pixels) : QImage();
}

/// `drawing`, of which only the shape counts, in white.
QImage whitened(const QImage& drawing) {
    if (drawing.isNull()) {
        return drawing;
    }
    QImage white(drawing.size(), QImage::Format_ARGB32_Premultiplied);
    white.fill(Qt::white);
    QPainter painter(&white);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, drawing);
    return white;
}

} // namespace

IconLoader::IconLoader(MainLoop& loop, std::shared_ptr<const IconSource> source,
                       std::shared_ptr<SharedIconTheme> theme)
    : loop_(loop), source_(std::move(source)), theme_(std::move(theme)), cache_(kCacheBytes) {
    QImageReader::setAllocationLimit(kAllocationMegabytes);
}

IconLoader::Answer IconLoader::ofFile(const fs::path& path, int pixels) {
    return answer("file " + std::to_string(pixels) + ' ' + path.string(),
                  [source = source_, theme = theme_, path, pixels] {
                      const auto name = source ? source->iconName(path) : std::nullopt;
                      return name ? imageNamed(*theme->get(), *name, pixels) : QImage();
                  });
}

IconLoader::Answer IconLoader::symbol(std::string_view name, int pixels) {
    return answer("symbol " + std::to_string(pixels) + ' ' + std::string(name),
                  [theme = theme_, name = std::string(name), pixels] {
                      return whitened(imageNamed(*theme->get(), name, pixels));
                  });
}

void IconLoader::forgetMissing() {
    if (loop_.now() - forgotten_ < kMissingFor) {
        return;
    }
    forgotten_ = loop_.now();
    bool wasMissing = false;
    for (const auto& key : cache_.keys()) {
        if (const Answer* answer = cache_.object(key); answer->state == State::missing) {
            cache_.remove(key);
            wasMissing = true;
        }
    }
    if (wasMissing) {
        theme_->forget();
    }
}

IconLoader::Answer IconLoader::answer(const std::string& key, Find find) {
    const QString cacheKey = QString::fromStdString(key);
    if (const Answer* known = cache_.object(cacheKey)) {
        return *known;
    }
    cache_.insert(cacheKey, new Answer, kEntryBytes);
    requests_.push_back({.key = cacheKey, .find = std::move(find)});
    if (requests_.size() == 1) {
        loop_.post([this, alive = std::weak_ptr(isAlive_)] {
            if (!alive.expired()) {
                begin();
            }
        });
    }
    return {};
}

void IconLoader::begin() {
    if (requests_.empty()) {
        return;
    }
    auto work = [requests = std::exchange(requests_, {})] {
        std::vector<Found> found;
        found.reserve(requests.size());
        for (const Request& request : requests) {
            found.push_back({.key = request.key, .image = request.find()});
        }
        return found;
    };
    loop_.background(std::move(work),
                     [this, alive = std::weak_ptr(isAlive_)](const std::vector<Found>& found) {
                         if (!alive.expired()) {
                             store(found);
                         }
                     });
}

void IconLoader::store(const std::vector<Found>& found) {
    for (const auto& [key, image] : found) {
        const auto state = image.isNull() ? State::missing : State::ready;
        cache_.insert(key, new Answer{.state = state, .image = image},
                      kEntryBytes + image.sizeInBytes());
    }
    loaded.emit();
}

} // namespace pello
