#include "desktop/ScreenCopy.h"

#include <X11/Xutil.h>
#include <sys/ipc.h>
#include <sys/shm.h>

#include <span>

namespace pello::bench {
namespace {

constexpr std::uint32_t kColour = 0xffffff;

/// The columns in which two rows differ.
Box differingColumns(std::span<const std::uint32_t> now, std::span<const std::uint32_t> before) {
    Box columns;
    for (std::size_t x = 0; x < now.size(); ++x) {
        if (((now[x] ^ before[x]) & kColour) != 0) {
            const int column = static_cast<int>(x);
            columns.include({.left = column, .top = 0, .right = column + 1, .bottom = 1});
        }
    }
    return columns;
}

} // namespace

ScreenCopy::ScreenCopy(Display* display)
    : display_(display),
      screen_{.left = 0,
              .top = 0,
              .right = XDisplayWidth(display, XDefaultScreen(display)),
              .bottom = XDisplayHeight(display, XDefaultScreen(display))} {
    const auto count =
        static_cast<std::size_t>(screen_.width()) * static_cast<std::size_t>(screen_.height());
    pixels_.resize(count);
    shared_.shmid = shmget(IPC_PRIVATE, count * sizeof(std::uint32_t), IPC_CREAT | 0600);
    shared_.shmaddr = static_cast<char*>(shmat(shared_.shmid, nullptr, 0));
    shared_.readOnly = False;
    XShmAttach(display_, &shared_);
    XSync(display_, False);
    shmctl(shared_.shmid, IPC_RMID, nullptr);
    update(screen_);
}

Box ScreenCopy::update(Box part) {
    part.left = std::max(part.left, 0);
    part.top = std::max(part.top, 0);
    part.right = std::min(part.right, screen_.right);
    part.bottom = std::min(part.bottom, screen_.bottom);
    Box changed;
    if (part.isEmpty()) {
        return changed;
    }
    const int screen = XDefaultScreen(display_);
    const auto width = static_cast<std::size_t>(part.width());
    XImage* image = XShmCreateImage(display_, XDefaultVisual(display_, screen),
                                    static_cast<unsigned>(XDefaultDepth(display_, screen)), ZPixmap,
                                    shared_.shmaddr, &shared_, static_cast<unsigned>(width),
                                    static_cast<unsigned>(part.height()));
    if (XShmGetImage(display_, XDefaultRootWindow(display_), image, part.left, part.top,
                     AllPlanes) != 0) {
        for (int y = part.top; y < part.bottom; ++y) {
            const auto row = static_cast<std::size_t>(y - part.top);
            const std::span now(
                reinterpret_cast<const std::uint32_t*>(shared_.shmaddr) + row * width, width);
            const auto before = std::span(pixels_).subspan(
                static_cast<std::size_t>(y) * static_cast<std::size_t>(screen_.right) +
                    static_cast<std::size_t>(part.left),
                width);
            if (const Box columns = differingColumns(now, before); !columns.isEmpty()) {
                changed.include({.left = part.left + columns.left,
                                 .top = y,
                                 .right = part.left + columns.right,
                                 .bottom = y + 1});
                std::ranges::copy(now, before.begin());
            }
        }
    }
    image->data = nullptr; // the segment's, not the image's
    XDestroyImage(image);
    return changed;
}

} // namespace pello::bench
