#pragma once

#include "platform/FeedReader.h"
#include "platform/MainLoop.h"

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace pello {

/// Documents that are texts, on the main loop's time.
class MemoryFeedReader final : public FeedReader {
public:
    /// `loop` must outlive this object.
    explicit MemoryFeedReader(MainLoop& loop) : loop_(loop) {}

    [[nodiscard]] Subscription read(const Request& request,
                                    std::function<void(const Answer& answer)> answered) override {
        auto wanted = std::make_shared<bool>(true);
        loop_.post(
            [this, alive = std::weak_ptr(alive_), wanted, request, answered = std::move(answered)] {
                if (!alive.expired() && *wanted) {
                    answered(answerTo(request));
                }
            });
        ++readCount;
        return Subscription([wanted] { *wanted = false; });
    }

    /// What there is, by address. Nobody answers at the others.
    std::map<std::string, Answer> documents;

    /// How often something was read.
    int readCount = 0;

private:
    [[nodiscard]] Answer answerTo(const Request& request) const {
        const auto found = documents.find(request.address);
        if (found == documents.end()) {
            return Failure{.reason = Failure::Reason::unreachable,
                           .detail = "There is nothing at " + request.address + '.'};
        }
        const auto* text = std::get_if<std::string>(&found->second);
        if (text != nullptr && text->size() > request.largest) {
            return Failure{.reason = Failure::Reason::tooLarge, .detail = {}};
        }
        return found->second;
    }

    MainLoop& loop_;
    std::shared_ptr<int> alive_ = std::make_shared<int>();
};

} // namespace pello
