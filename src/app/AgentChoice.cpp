#include "app/AgentChoice.h"

#include "app/client/PickCommand.h"

#include <functional>
#include <utility>

namespace pello {

void AgentChoice::ask(std::string_view prompt, std::string text,
                      std::unique_ptr<ControlCaller> caller) {
    controller_.giveUpChoice();
    answer(std::nullopt);
    caller_ = std::move(caller);
    caller_->onGone = [this] {
        preparations_.cancel();
        caller_.reset();
        controller_.giveUpChoice();
    };
    loop_.background([text = std::move(text)] { return ChoiceList::prepared(text); },
                     preparations_.wrap(std::function<void(ChoiceList::Lines)>(
                         [this, prompt = std::string(prompt)](ChoiceList::Lines lines) {
                             open(prompt, std::move(lines));
                         })));
}

void AgentChoice::open(const std::string& prompt, ChoiceList::Lines lines) {
    controller_.choose({.prompt = prompt,
                        .lines = std::move(lines),
                        .answered = [this](std::optional<std::size_t> line) { answer(line); }});
}

void AgentChoice::answer(std::optional<std::size_t> line) {
    if (const auto caller = std::exchange(caller_, nullptr)) {
        caller->answer(line ? std::string(kChosen) + std::to_string(*line)
                            : std::string(kNoneChosen));
    }
}

} // namespace pello
