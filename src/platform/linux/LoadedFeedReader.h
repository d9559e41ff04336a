#pragma once

#include "platform/FeedReader.h"
#include "platform/MainLoop.h"

#include <memory>

namespace pello {

/// Reads by a module that is loaded for the first request: what speaks to networks is most of a
/// megabyte that nearly every day goes by without.
///
/// The module stands beside the program's file. Without it, nothing can be reached.
class LoadedFeedReader final : public FeedReader {
public:
    /// `loop` must outlive the reader.
    explicit LoadedFeedReader(MainLoop& loop) : loop_(loop) {}

    [[nodiscard]] Subscription read(const Request& request,
                                    std::function<void(const Answer& answer)> answered) override;

private:
    MainLoop& loop_;
    std::unique_ptr<FeedReader> reader_;
};

} // namespace pello
