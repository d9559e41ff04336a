#include "updates/ReleaseLoader.h"

#include <chrono>
#include <utility>

namespace pello {
namespace {

constexpr std::chrono::seconds kPatience{20};
constexpr int kRedirects = 5;

FeedProblem problemOf(const FeedReader::Failure& failure) {
    switch (failure.reason) {
    case FeedReader::Failure::Reason::unreachable:
        return {.title = "The release notes cannot be reached",
                .message = "This computer seems to be offline. " + failure.detail};
    case FeedReader::Failure::Reason::refused:
        return {.title = "The release notes could not be read", .message = failure.detail};
    case FeedReader::Failure::Reason::tooLarge:
        break;
    }
    return {.title = "The release notes are damaged",
            .message = "They are larger than any release notes are."};
}

} // namespace

ReleaseLoader::ReleaseLoader(FeedReader& reader, MainLoop& loop, std::string address)
    : reader_(reader), loop_(loop), address_(std::move(address)) {}

void ReleaseLoader::load(std::function<void(const ReleaseFeed::Contents& contents)> done) {
    parsing_.cancel();
    reading_ = reader_.read(
        {.address = address_,
         .largest = ReleaseFeed::kLargest,
         .patience = kPatience,
         .redirects = kRedirects},
        [this, done = std::move(done)](const FeedReader::Answer& answer) {
            if (const auto* failure = std::get_if<FeedReader::Failure>(&answer)) {
                done(problemOf(*failure));
                return;
            }
            std::function<void(ReleaseFeed::Contents)> parsed = done;
            loop_.background(
                [bytes = std::get<std::string>(answer)] { return ReleaseFeed::read(bytes); },
                parsing_.wrap(std::move(parsed)));
        });
}

UpdateVerdict::Place ReleaseLoader::place() const {
    return address_.starts_with("file:") ? UpdateVerdict::Place::thisComputer
                                         : UpdateVerdict::Place::network;
}

} // namespace pello
