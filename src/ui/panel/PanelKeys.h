#pragma once

#include "core/controller/PelloController.h"
#include "ui/panel/FailureRows.h"
#include "ui/panel/ResultList.h"
#include "ui/panel/SearchField.h"

#include <QKeyEvent>

#include <functional>

namespace pello {

/// What each key means while the panel has the keyboard, beyond editing the text.
class PanelKeys {
public:
    /// All must outlive this object.
    PanelKeys(PelloController& controller, const SearchField& field, const ResultList& list,
              FailureRows& failures)
        : controller_(controller), field_(field), list_(list), failures_(failures) {}

    /// Does what `event` asks for. False when the key is the field's.
    bool handle(const QKeyEvent& event);

    /// The user wants to change the settings.
    std::function<void()> onSettings;

private:
    struct Binding;

    bool run();
    bool runOtherwise();
    bool previous();
    bool next();
    bool previousOrOlder();
    bool nextOrNewer();
    bool older();
    bool newer();
    bool pageUp();
    bool pageDown();
    bool toFirst();
    bool toLast();
    bool complete();
    bool completeByRight();
    bool completeByLeft();
    bool completeAtEnd();
    bool clearOrClose();
    bool leavePrompt();
    bool dismissFailure();
    bool reveal();
    bool copy();
    bool forget();
    bool explain();
    bool openSettings();
    bool runRow(int row);
    bool swallow() { return true; } // NOLINT(*-to-static): stands in a table of members

    void select(int row);
    [[nodiscard]] bool isLastResultSelected() const;

    PelloController& controller_;
    const SearchField& field_;
    const ResultList& list_;
    FailureRows& failures_;
};

} // namespace pello
