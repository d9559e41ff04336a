#pragma once

#include "platform/FeedReader.h"

#include <memory>

namespace pello {

/// Documents over URL sessions that keep nothing.
class SessionFeedReader final : public FeedReader {
public:
    [[nodiscard]] Subscription read(const Request& request,
                                    std::function<void(const Answer& answer)> answered) override;

private:
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
