#pragma once

#include "app/ControlCaller.h"
#include "base/LatestOnly.h"
#include "core/controller/PelloController.h"
#include "platform/MainLoop.h"

#include <memory>
#include <string>
#include <string_view>

namespace pello {

/// Lets the user choose lines for other programs in the panel of the running launcher, one program
/// at a time: the next one takes the panel.
class AgentChoice {
public:
    /// Both must outlive this object.
    AgentChoice(PelloController& controller, MainLoop& loop)
        : controller_(controller), loop_(loop) {}

    /// Opens the panel with the lines of `text` once they are prepared, and answers `caller`.
    void ask(std::string_view prompt, std::string text, std::unique_ptr<ControlCaller> caller);

private:
    void open(const std::string& prompt, ChoiceList::Lines lines);
    void answer(std::optional<std::size_t> line);

    PelloController& controller_;
    MainLoop& loop_;
    std::unique_ptr<ControlCaller> caller_; // whoever waits
    LatestOnly preparations_;
};

} // namespace pello
