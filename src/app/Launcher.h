#pragma once

#include "app/Platform.h"
#include "core/controller/PelloController.h"
#include "platform/PelloLog.h"

namespace pello {

/// Everything of the launcher that has no window, put together over one platform.
class Launcher {
public:
    explicit Launcher(const Platform& platform);

    [[nodiscard]] PelloController& controller() { return controller_; }
    [[nodiscard]] PelloSettings& settings() { return settings_; }
    [[nodiscard]] const UsageStore& usage() const { return usage_; }

private:
    PelloLog log_;
    PelloSettings settings_;
    UsageStore usage_;
    QueryHistory queryHistory_;
    AppIndexer indexer_;
    PelloController controller_;
    Subscription onProblem_;
    Subscription onFailure_;
};

} // namespace pello
