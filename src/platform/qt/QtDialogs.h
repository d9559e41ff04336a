#pragma once

#include "platform/Dialogs.h"

#include <QObject>

namespace pello {

/// Questions in windows of Qt's. Needs the QApplication.
class QtDialogs final : public Dialogs {
public:
    void confirm(const Confirmation& question,
                 std::function<void(Answer answer)> answered) override;

private:
    /// What open questions belong to: their answers end with it.
    QObject receiver_;
};

} // namespace pello
