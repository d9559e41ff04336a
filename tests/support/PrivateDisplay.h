#pragma once

#include "platform/linux/X11Connection.h"
#include "platform/linux/Xcb.h"
#include "support/QtTurns.h"

#include <QProcess>
#include <QTimer>
#include <gtest/gtest.h>
#include <sys/uio.h>
#include <xcb/xcbext.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <array>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pello {

/// An X server of the test's own, which DISPLAY names as long as this object lives, with a keyboard
/// that obeys.
class PrivateDisplay {
public:
    PrivateDisplay() {
        ensureQtApplication();
        server_.setStandardErrorFile(QProcess::nullDevice());
        server_.start(QStringLiteral("Xvfb"),
                      {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                       QStringLiteral("0"), QStringLiteral("640x480x24"),
                       QStringLiteral("-noreset")});
        while (!server_.canReadLine() && server_.waitForReadyRead()) {
        }
        const QByteArray number = server_.readLine().trimmed();
        EXPECT_FALSE(number.isEmpty()) << "Xvfb does not run";
        qputenv("DISPLAY", ":" + number);
        // Nothing of a session that the tests are run in.
        qunsetenv("WAYLAND_DISPLAY");
        keyboard_ = std::make_unique<X11Connection>();
    }

    ~PrivateDisplay() {
        for (const auto& program : programs_) {
            end(*program);
        }
        keyboard_.reset();
        end(server_);
        qunsetenv("DISPLAY");
    }

    PrivateDisplay(const PrivateDisplay&) = delete;
    PrivateDisplay& operator=(const PrivateDisplay&) = delete;

    /// What `command` prints, run through the shell to its end.
    static std::string run(const std::string& command) {
        QProcess process;
        process.start(QStringLiteral("sh"),
                      {QStringLiteral("-c"), QString::fromStdString(command)});
        process.waitForFinished();
        EXPECT_EQ(process.exitCode(), 0) << command << process.readAllStandardError().toStdString();
        return process.readAllStandardOutput().toStdString();
    }

    /// Starts a program that runs as long as this object.
    QProcess& start(const std::string& program, const QStringList& arguments = {}) {
        programs_.push_back(std::make_unique<QProcess>());
        programs_.back()->setStandardErrorFile(QProcess::nullDevice());
        programs_.back()->setStandardOutputFile(QProcess::nullDevice());
        programs_.back()->start(QString::fromStdString(program), arguments);
        EXPECT_TRUE(programs_.back()->waitForStarted()) << program;
        return *programs_.back();
    }

    static void end(QProcess& process) {
        process.kill();
        process.waitForFinished();
    }

    /// Starts a window manager, and waits until it does what it is asked.
    QProcess& startManager(const std::string& name) {
        QProcess& manager = start(name);
        QTimer again; // while it starts it passes over what it is asked
        again.start(std::chrono::milliseconds(20));
        const xcb_atom_t desktop = atomNamed(connection(), "_NET_CURRENT_DESKTOP");
        for (const std::uint32_t number : {1U, 0U}) {
            turnQtUntil([&] {
                ask(desktop, number);
                return numberIn(desktop) == number;
            });
        }
        return manager;
    }

    /// Breaks the connection of every client.
    void endServer() { end(server_); }

    void press(xcb_keycode_t key) { fake(XCB_KEY_PRESS, key); }
    void release(xcb_keycode_t key) { fake(XCB_KEY_RELEASE, key); }
    void click(std::uint8_t button) {
        fake(XCB_BUTTON_PRESS, button);
        fake(XCB_BUTTON_RELEASE, button);
    }

    /// Unplugs a keyboard, as far as applications can tell, and plugs it in again.
    void detachKeyboard(std::uint16_t number) { changeHierarchy({4, 2, number, 0}); }
    void attachKeyboard(std::uint16_t number) { changeHierarchy({3, 2, number, 3}); }

    [[nodiscard]] xcb_connection_t* connection() const { return keyboard_->get(); }
    [[nodiscard]] xcb_window_t root() const { return keyboard_->root(); }

private:
    /// Kind of change, length in units of four bytes, device, and what it is attached to.
    void changeHierarchy(const std::array<std::uint16_t, 4>& change) {
        struct {
            std::uint8_t major = 0;
            std::uint8_t minor = 0;
            std::uint16_t length = 0;
            std::uint8_t count = 1;
            std::array<std::uint8_t, 3> filling{};
            std::array<std::uint16_t, 4> change{};
        } request{.change = change};
        std::array<iovec, 3> pieces{};
        pieces[2] = {&request, sizeof request};
        const xcb_protocol_request_t protocol{1, &xcb_input_id, XCB_INPUT_XI_CHANGE_HIERARCHY, 1};
        const xcb_void_cookie_t sent{
            xcb_send_request(connection(), XCB_REQUEST_CHECKED, &pieces[2], &protocol)};
        const XcbReply<xcb_generic_error_t> error(xcb_request_check(connection(), sent));
        EXPECT_EQ(error, nullptr);
    }

    void ask(xcb_atom_t request, std::uint32_t number) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = root();
        message.type = request;
        message.data.data32[0] = number;
        std::array<char, 32> bytes{};
        static_assert(sizeof message == sizeof bytes);
        std::memcpy(bytes.data(), &message, sizeof message);
        xcb_send_event(connection(), 0, root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       bytes.data());
    }

    [[nodiscard]] std::optional<std::uint32_t> numberIn(xcb_atom_t property) const {
        const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            connection(), xcb_get_property(connection(), 0, root(), property, XCB_ATOM_ANY, 0, 1),
            nullptr));
        return reply && xcb_get_property_value_length(reply.get()) == 4
                   ? std::optional(
                         *static_cast<std::uint32_t*>(xcb_get_property_value(reply.get())))
                   : std::nullopt;
    }

    void fake(std::uint8_t event, std::uint8_t detail) {
        xcb_test_fake_input(connection(), event, detail, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0,
                            0);
        // Once it answers, the key is down for everybody who asks.
        const XcbReply<xcb_get_input_focus_reply_t> done(
            xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
    }

    QProcess server_;
    std::unique_ptr<X11Connection> keyboard_;
    std::vector<std::unique_ptr<QProcess>> programs_;
};

} // namespace pello
