#pragma once

#include "platform/Dialogs.h"

#include <memory>

namespace pello {

/// Questions in the system's alerts, which are modal: the program's windows wait for the answer.
class AlertDialogs final : public Dialogs {
public:
    void confirm(const Confirmation& question,
                 std::function<void(Answer answer)> answered) override;

private:
    /// What open questions belong to: their answers end with it.
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
