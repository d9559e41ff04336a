#pragma once

#include "desktop/Screen.h"
#include "desktop/Target.h"

#include <nlohmann/json.hpp>

#include <random>
#include <vector>

namespace pello::bench {

/// What using one launcher costs, again and again; between two trials passes an uneven while.
class Trials {
public:
    /// Both must outlive the trials.
    Trials(const Target& target, Screen& screen);

    /// Does all phases of the target, and returns every single figure by its phase.
    [[nodiscard]] nlohmann::json run();

private:
    using Json = nlohmann::json;

    Json cold();
    Json startDaemon();
    Json warm();
    Json keys();
    void addRest(Json& figures);

    Sighting summon(double& since);
    bool show();
    void typeOnce(const std::string& query, int& left, Json& figures);
    bool hide(Json* figures = nullptr);
    void end();
    void pause();
    double waitUntilIdle(double most);

    const Target& target_;
    Screen& screen_;
    std::mt19937 random_{12345};
};

} // namespace pello::bench
