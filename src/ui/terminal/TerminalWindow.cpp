#include "ui/terminal/TerminalWindow.h"

#include "ui/terminal/TerminalLayout.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace pello {
namespace {

/// How long the rest of a key's bytes may take over a slow line before an escape character is taken
/// for the key of that name.
constexpr std::chrono::milliseconds kPatience{50};

} // namespace

TerminalWindow::TerminalWindow(PelloController& controller, ScriptFailureLog& failures,
                               TerminalDialogs& dialogs, MainLoop& loop, Terminal terminal)
    : controller_(controller),
      dialogs_(dialogs),
      loop_(loop),
      terminal_(std::move(terminal)),
      failures_(failures),
      keys_(controller, line_, failures_,
            {.rowsAtOnce = [this] { return terminal::rowsAtOnce(view(), size_); },
             .tell = [this](std::string sentence) { status_ = std::move(sentence); },
             .redraw = [this] { terminal_.forget(); },
             .suspend = [this] { terminal_.suspend(); },
             .end = [this] { terminal_.end(); }}) {
    for (Signal<>* source : {&controller.changed, &failures.changed, &dialogs.changed}) {
        subscriptions_.push_back(source->connect([this] { paintLater(); }));
    }
    controller_.setPanel(this);
}

TerminalWindow::~TerminalWindow() {
    controller_.setPanel(nullptr);
}

void TerminalWindow::type(std::string_view bytes) {
    patience_ = {};
    take(decoder_.decode(bytes));
    waitForMore();
}

void TerminalWindow::waitForMore() {
    if (decoder_.isWaiting()) {
        patience_ = loop_.after(kPatience, [this] { take(decoder_.giveUp()); });
    }
}

void TerminalWindow::take(const std::vector<TerminalKey>& keys) {
    for (const TerminalKey& key : keys) {
        status_.clear();
        if (dialogs_.current() != nullptr) {
            answer(key);
        } else {
            keys_.handle(key);
        }
    }
    paintLater();
}

/// Return answers nothing: it may have been typed before the question could be read.
void TerminalWindow::answer(const TerminalKey& key) {
    const bool isControl = key.with == TerminalKey::With::control;
    const bool isTyped = key.with == TerminalKey::With::nothing;
    if (isTyped && (key.text == "y" || key.text == "Y")) {
        dialogs_.answer(Dialogs::Answer::confirmed);
    } else if (key.name == TerminalKey::Name::escape || (isControl && key.text == "c") ||
               (isTyped && (key.text == "n" || key.text == "N"))) {
        dialogs_.answer(Dialogs::Answer::cancelled);
    }
}

void TerminalWindow::resize(TerminalSize size) {
    size_ = size;
    paintLater();
}

void TerminalWindow::dismiss() {
    loop_.post([this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired()) {
            controller_.show();
        }
    });
}

/// However much changes in a turn of the loop, it is painted once.
void TerminalWindow::paintLater() {
    if (std::exchange(isPaintDue_, true)) {
        return;
    }
    loop_.post([this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired()) {
            isPaintDue_ = false;
            paint();
        }
    });
}

void TerminalWindow::paint() {
    terminal_.paint(terminal::layOut(view(), size_));
}

TerminalView TerminalWindow::view() const {
    TerminalView made{.prompt = controller_.argumentPrompt().value_or(""),
                      .beforeCaret = line_.beforeCaret(),
                      .afterCaret = line_.afterCaret(),
                      .results = controller_.results(),
                      .selection = controller_.selection(),
                      .remark = controller_.selectionRemark(),
                      .reasons = controller_.reasons(),
                      .failures = failures_.all(),
                      .selectedFailure = failures_.selection(),
                      .opened = failures_.opened(),
                      .firstLine = failures_.firstLine(),
                      .notice = controller_.notice(),
                      .status = status_};
    if (line_.isCaretAtEnd() && !failures_.selection()) {
        made.completion = controller_.inlineCompletion().value_or("");
    }
    if (const auto* question = dialogs_.current()) {
        made.question = *question;
    }
    return made;
}

} // namespace pello
