#pragma once

#include "core/controller/LauncherPanel.h"
#include "core/controller/PelloController.h"
#include "platform/MainLoop.h"
#include "ui/terminal/EditLine.h"
#include "ui/terminal/TerminalDialogs.h"
#include "ui/terminal/TerminalFailures.h"
#include "ui/terminal/TerminalKeyDecoder.h"
#include "ui/terminal/TerminalKeys.h"
#include "ui/terminal/TerminalScreen.h"
#include "ui/terminal/TerminalView.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pello {

/// The launcher in the whole window of a terminal. Open as long as it lives: after something ran it
/// is ready for the next. Main thread only.
class TerminalWindow final : public LauncherPanel {
public:
    /// The terminal, as the window uses it.
    struct Terminal {
        std::function<void(const TerminalScreen&)> paint;
        /// Forgets what the terminal shows: the next paint writes all of it.
        std::function<void()> forget;
        /// The user wants the shell for a while.
        std::function<void()> suspend;
        /// The user wants to leave.
        std::function<void()> end;
    };

    /// All must outlive the window.
    TerminalWindow(PelloController& controller, ScriptFailureLog& failures,
                   TerminalDialogs& dialogs, MainLoop& loop, Terminal terminal);
    ~TerminalWindow() override;
    TerminalWindow(const TerminalWindow&) = delete;
    TerminalWindow& operator=(const TerminalWindow&) = delete;

    /// Takes what the terminal sent.
    void type(std::string_view bytes);

    /// Uses a window of this size from now on.
    void resize(TerminalSize size);

    void present() override { paintLater(); }

    /// Something runs: the rows start afresh behind it.
    void dismiss() override;
    [[nodiscard]] bool isPresented() const override { return true; }

private:
    void take(const std::vector<TerminalKey>& keys);
    void answer(const TerminalKey& key);
    void waitForMore();
    void paintLater();
    void paint();
    [[nodiscard]] TerminalView view() const;

    PelloController& controller_;
    TerminalDialogs& dialogs_;
    MainLoop& loop_;
    Terminal terminal_;
    TerminalFailures failures_;
    EditLine line_;
    TerminalKeys keys_;
    TerminalKeyDecoder decoder_;
    TerminalSize size_;
    std::string status_;
    bool isPaintDue_ = false;
    Subscription patience_;
    std::vector<Subscription> subscriptions_;
    /// What was posted ends with it.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace pello
