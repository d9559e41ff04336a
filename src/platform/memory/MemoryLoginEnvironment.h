#pragma once

#include "platform/LoginEnvironment.h"

#include <optional>
#include <utility>
#include <vector>

namespace pello {

/// An environment that becomes known when its owner says so.
class MemoryLoginEnvironment final : public LoginEnvironment {
public:
    void whenKnown(std::function<void(const EnvironmentVariables&)> action) override {
        if (known_) {
            action(*known_);
        } else {
            waiting_.push_back(std::move(action));
        }
    }

    /// This is the environment from now on.
    void become(EnvironmentVariables variables) {
        known_ = std::move(variables);
        for (const auto& action : std::exchange(waiting_, {})) {
            action(*known_);
        }
    }

private:
    std::optional<EnvironmentVariables> known_;
    std::vector<std::function<void(const EnvironmentVariables&)>> waiting_;
};

} // namespace pello
