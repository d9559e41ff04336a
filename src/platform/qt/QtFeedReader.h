#pragma once

#include "platform/FeedReader.h"

#include <QObject>

namespace pello {

/// Documents over Qt's network access. What that needs exists only while something is read.
class QtFeedReader final : public FeedReader {
public:
    [[nodiscard]] Subscription read(const Request& request,
                                    std::function<void(const Answer& answer)> answered) override;

private:
    class Transfer;

    /// What the transfers that are under way belong to.
    QObject transfers_;
};

} // namespace pello
