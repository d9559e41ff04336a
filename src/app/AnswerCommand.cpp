#include "app/AnswerCommand.h"

#include "answers/Calculator.h"
#include "answers/Conversions.h"

#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace pello {
namespace {

std::vector<std::string> answers(const AnswerCommand& command) {
    std::vector<std::string> answers;
    if (command.evaluator == AnswerCommand::Evaluator::calculator) {
        const Calculator calculator(command.from.surroundings.locale);
        if (auto result = calculator.evaluate(command.text)) {
            answers.push_back(std::move(*result));
        }
        return answers;
    }
    const Conversions conversions(command.from.surroundings);
    for (auto& result : conversions.results(command.text, command.from.moment())) {
        answers.push_back(std::move(result.title));
    }
    return answers;
}

} // namespace

int run(const AnswerCommand& command) {
    const auto found = answers(command);
    for (const std::string& answer : found) {
        std::cout << answer << '\n';
    }
    return found.empty() ? ExitStatus::kNothing : ExitStatus::kSuccess;
}

} // namespace pello
