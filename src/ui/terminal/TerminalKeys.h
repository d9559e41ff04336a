#pragma once

#include "core/controller/PelloController.h"
#include "ui/terminal/EditLine.h"
#include "ui/terminal/TerminalFailures.h"
#include "ui/terminal/TerminalKey.h"

#include <functional>
#include <string>

namespace pello {

/// What each key means in the terminal: those of the panel, and those that edit a line in a shell.
class TerminalKeys {
public:
    /// What the keys need to know of the window and ask of it.
    struct Window {
        std::function<int()> rowsAtOnce;
        /// Says what was done.
        std::function<void(std::string)> tell;
        std::function<void()> redraw;
        std::function<void()> suspend;
        std::function<void()> end;
    };

    /// All must outlive this object.
    TerminalKeys(PelloController& controller, EditLine& line, TerminalFailures& failures,
                 Window window);

    /// Does what `key` asks for; the query is what stands in the line afterwards.
    void handle(const TerminalKey& key);

private:
    struct Binding;

    void handleReading(const TerminalKey& key);
    void handleTyping(const TerminalKey& key);
    [[nodiscard]] static bool isRowKey(const TerminalKey& key);

    void run();
    void runOtherwise();
    void runRow(int row);
    void reveal();
    void copyOrEnd();
    void eraseOrEnd();
    void clearOrEnd();
    void complete();
    void rightOrComplete();
    void backspace();
    void deleteOrDismiss();
    void previous();
    void next();
    void previousOrOlder();
    void nextOrNewer();
    void older() { controller_.recallOlder(); }
    void newer() { controller_.recallNewer(); }
    void pageUp();
    void pageDown();
    void homeOrFirst();
    void endOrLast();
    void redraw();
    void suspend();
    void left() { line_.moveLeft(); }
    void wordLeft() { line_.moveWordLeft(); }
    void wordRight() { line_.moveWordRight(); }
    void lineStart() { line_.moveToStart(); }
    void lineEnd() { line_.moveToEnd(); }
    void eraseWord() { line_.eraseWordLeft(); }
    void eraseToStart() { line_.eraseToStart(); }
    void eraseToEndOrExplain();
    void explain() { controller_.toggleReasons(); }
    void forget();

    void select(int row);
    void tellOfSelection();
    [[nodiscard]] int lastRow() const;

    PelloController& controller_;
    EditLine& line_;
    TerminalFailures& failures_;
    Window window_;
    Subscription onChange_; // the controller types too: completions, history
};

} // namespace pello
