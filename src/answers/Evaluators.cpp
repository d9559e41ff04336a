#include "answers/Evaluators.h"

#include <array>
#include <string_view>

namespace pello {

std::shared_ptr<const Evaluators> Evaluators::prepared(const Surroundings& surroundings) {
    constexpr std::array<std::string_view, 3> kSamples = {"1.5 km in mi", "weeks until 2030-01-02",
                                                          "today + 3 weeks"};
    auto evaluators = std::make_shared<const Evaluators>(surroundings);
    static_cast<void>(evaluators->calculator.evaluate("1000.5+1"));
    for (const std::string_view sample : kSamples) {
        static_cast<void>(evaluators->conversions.results(sample, Date::ofSystemClock()));
    }
    return evaluators;
}

} // namespace pello
