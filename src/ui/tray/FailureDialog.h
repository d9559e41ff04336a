#pragma once

#include "core/controller/PelloController.h"
#include "scripts/ScriptFailureLog.h"

#include <QDialog>

#include <functional>

namespace pello {

/// The whole of what a script said when it failed, and what to do about it. Deletes itself when it
/// is closed.
class FailureDialog final : public QDialog {
public:
    /// What the buttons do; the dialog closes after the last two.
    struct Actions {
        std::function<void()> copy;
        std::function<void()> reveal;
        std::function<void()> dismiss;
    };

    FailureDialog(const ScriptFailure& failure, const Actions& actions);
};

/// Opens a dialog for `failure`. The others must outlive it.
void showFailure(const ScriptFailure& failure, PelloController& controller, ScriptFailureLog& log);

} // namespace pello
