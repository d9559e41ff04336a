#include "ui/icons/IconLoader.h"

#include <QImageReader>

#include <algorithm>

namespace pello {

namespace {

namespace fs = std::filesystem;

constexpr qsizetype kCacheBytes = 4 << 20;
constexpr qsizetype kEntryBytes = 128; // what an entry without an image costs, about
constexpr int kAllocationMegabytes = 64;

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

} // namespace

IconLoader::IconLoader(MainLoop& loop, std::shared_ptr<const IconSource> source,
                       std::shared_ptr<const IconTheme> theme)
    : loop_(loop), source_(std::move(source)), theme_(std::move(theme)), cache_(kCacheBytes) {
    QImageReader::setAllocationLimit(kAllocationMegabytes);
}

IconLoader::Answer IconLoader::ofFile(const fs::path& path, int pixels) {
    return answer("file " + std::to_string(pixels) + ' ' + path.string(),
                  [source = source_, theme = theme_, path, pixels] {
                      const auto name = source ? source->iconName(path) : std::nullopt;
                      return name ? imageNamed(*theme, *name, pixels) : QImage();
                  });
}

IconLoader::Answer IconLoader::named(std::string_view name, int pixels) {
    return answer("name " + std::to_string(pixels) + ' ' + std::string(name),
                  [theme = theme_, name = std::string(name), pixels] {
                      return imageNamed(*theme, name, pixels);
                  });
}

void IconLoader::forgetMissing() {
    for (const auto& key : cache_.keys()) {
        if (const Answer* answer = cache_.object(key); answer->state == State::missing) {
            cache_.remove(key);
        }
    }
}

IconLoader::Answer IconLoader::answer(const std::string& key, const Find& find) {
    const QString cacheKey = QString::fromStdString(key);
    if (const Answer* known = cache_.object(cacheKey)) {
        return *known;
    }
    cache_.insert(cacheKey, new Answer, kEntryBytes);
    loop_.background(find, [this, cacheKey, alive = std::weak_ptr(isAlive_)](const QImage& image) {
        if (!alive.expired()) {
            store(cacheKey, image);
        }
    });
    return {};
}

void IconLoader::store(const QString& key, const QImage& image) {
    const auto state = image.isNull() ? State::missing : State::ready;
    cache_.insert(key, new Answer{.state = state, .image = image},
                  kEntryBytes + image.sizeInBytes());
    loaded.emit();
}

} // namespace pello
