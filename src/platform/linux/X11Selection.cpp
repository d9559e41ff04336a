#include "platform/linux/X11Selection.h"

#include "platform/linux/Xcb.h"

#include <cstdint>
#include <poll.h>

namespace pello {
namespace {

using std::chrono::steady_clock;

// In units of four bytes: what fits into the longest property that a client sets in one request.
constexpr std::uint32_t kLongestProperty = 1U << 20U;

} // namespace

/// A window that never shows: what the holder of the clipboard writes the text to.
struct X11Selection::Client {
    Client();
    ~Client() { xcb_disconnect(connection); }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    [[nodiscard]] bool isBroken() const { return xcb_connection_has_error(connection) != 0; }
    void request() const;
    [[nodiscard]] bool waitForAnswer(steady_clock::time_point deadline) const;
    [[nodiscard]] std::optional<std::string> takeText() const;

    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    xcb_window_t window = XCB_WINDOW_NONE;
    xcb_atom_t clipboard = XCB_ATOM_NONE;
    xcb_atom_t utf8 = XCB_ATOM_NONE;
    xcb_atom_t property = XCB_ATOM_NONE;

private:
    enum class Answer { none, refusal, text };
    [[nodiscard]] Answer nextAnswer() const;
};

X11Selection::Client::Client() {
    if (isBroken()) {
        return;
    }
    window = xcb_generate_id(connection);
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    clipboard = atomNamed(connection, "CLIPBOARD");
    utf8 = atomNamed(connection, "UTF8_STRING");
    property = atomNamed(connection, "PELLO_SELECTION");
}

void X11Selection::Client::request() const {
    xcb_delete_property(connection, window, property);
    xcb_convert_selection(connection, window, clipboard, utf8, property, XCB_CURRENT_TIME);
    xcb_flush(connection);
}

X11Selection::Client::Answer X11Selection::Client::nextAnswer() const {
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
        if ((event->response_type & 0x7FU) == XCB_SELECTION_NOTIFY) {
            // NOLINTNEXTLINE(*-reinterpret-cast): how this library hands out its events
            const auto* notify = reinterpret_cast<xcb_selection_notify_event_t*>(event.get());
            return notify->property == property ? Answer::text : Answer::refusal;
        }
    }
    return Answer::none;
}

bool X11Selection::Client::waitForAnswer(steady_clock::time_point deadline) const {
    while (true) {
        const Answer answer = nextAnswer();
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - steady_clock::now());
        if (answer != Answer::none || left.count() <= 0 || isBroken()) {
            return answer == Answer::text;
        }
        pollfd waiting{.fd = xcb_get_file_descriptor(connection), .events = POLLIN, .revents = 0};
        ::poll(&waiting, 1, static_cast<int>(left.count()));
    }
}

std::optional<std::string> X11Selection::Client::takeText() const {
    const auto request =
        xcb_get_property(connection, 1, window, property, XCB_ATOM_ANY, 0, kLongestProperty);
    const XcbReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection, request, nullptr));
    if (!reply || reply->type != utf8 || reply->format != 8) { // in pieces, or no text
        return std::nullopt;
    }
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
    return std::string(bytes, static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
}

X11Selection::X11Selection() = default;
X11Selection::~X11Selection() = default;

std::optional<std::string> X11Selection::clipboard(std::chrono::milliseconds patience) {
    if (!client_ || client_->isBroken()) {
        client_ = std::make_unique<Client>();
    }
    if (client_->isBroken()) {
        return std::nullopt;
    }
    client_->request();
    std::optional<std::string> text;
    if (client_->waitForAnswer(steady_clock::now() + patience)) {
        text = client_->takeText();
    }
    if (!text) {
        client_.reset(); // what comes late, or in pieces, must not be taken for the next answer
    }
    return text;
}

} // namespace pello
