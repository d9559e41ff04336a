#include "platform/macos/SessionFeedReader.h"

#import "platform/macos/PropertyListObjects.h"

#import <Foundation/Foundation.h>

#include <memory>
#include <optional>
#include <utility>

namespace {

using pello::FeedReader;
using Failure = FeedReader::Failure;

Failure::Reason reasonOf(NSError* error) {
    switch (error.code) {
    case NSURLErrorTimedOut:
    case NSURLErrorCannotFindHost:
    case NSURLErrorCannotConnectToHost:
    case NSURLErrorNetworkConnectionLost:
    case NSURLErrorDNSLookupFailed:
    case NSURLErrorNotConnectedToInternet:
    case NSURLErrorInternationalRoamingOff:
    case NSURLErrorDataNotAllowed:
        return Failure::Reason::unreachable;
    default:
        return Failure::Reason::refused;
    }
}

/// What a server says that has no document; nothing for documents and files.
std::optional<Failure> refusal(NSURLResponse* response) {
    if (![response isKindOfClass:NSHTTPURLResponse.class]) {
        return std::nullopt;
    }
    const NSInteger status = static_cast<NSHTTPURLResponse*>(response).statusCode;
    if (status >= 200 && status < 300) {
        return std::nullopt;
    }
    NSString* words = [NSHTTPURLResponse localizedStringForStatusCode:status];
    return Failure{.reason = Failure::Reason::refused,
                   .detail = std::string("The server answered: ") + words.UTF8String + '.'};
}

} // namespace

/// One document on its way; the session keeps it until it is invalidated.
@interface PelloFeedTransfer : NSObject <NSURLSessionDataDelegate> {
    NSMutableData* _data;
    FeedReader::Request _request;
    std::optional<Failure> _failure;
    std::function<void(const FeedReader::Answer&)> _answered;
    int _redirects;
}
- (instancetype)initWithRequest:(const FeedReader::Request&)request
                       answered:(std::function<void(const FeedReader::Answer&)>)answered;
@end

@implementation PelloFeedTransfer

- (instancetype)initWithRequest:(const FeedReader::Request&)request
                       answered:(std::function<void(const FeedReader::Answer&)>)answered {
    if ((self = [super init]) != nil) {
        _data = [NSMutableData data];
        _request = request;
        _answered = std::move(answered);
    }
    return self;
}

- (void)URLSession:(NSURLSession*)session
                          task:(NSURLSessionTask*)task
    willPerformHTTPRedirection:(NSHTTPURLResponse*)response
                    newRequest:(NSURLRequest*)request
             completionHandler:(void (^)(NSURLRequest*))completionHandler {
    completionHandler(++_redirects > _request.redirects ? nil : request);
}

- (void)URLSession:(NSURLSession*)session
              dataTask:(NSURLSessionDataTask*)task
    didReceiveResponse:(NSURLResponse*)response
     completionHandler:(void (^)(NSURLSessionResponseDisposition))completionHandler {
    _failure = refusal(response);
    completionHandler(_failure ? NSURLSessionResponseCancel : NSURLSessionResponseAllow);
}

- (void)URLSession:(NSURLSession*)session
          dataTask:(NSURLSessionDataTask*)task
    didReceiveData:(NSData*)data {
    if (_data.length + data.length > _request.largest) {
        _failure = Failure{.reason = Failure::Reason::tooLarge, .detail = {}};
        [task cancel];
        return;
    }
    [_data appendData:data];
}

- (void)URLSession:(NSURLSession*)session
                    task:(NSURLSessionTask*)task
    didCompleteWithError:(NSError*)error {
    if (!_failure && error != nil) {
        _failure =
            Failure{.reason = reasonOf(error), .detail = error.localizedDescription.UTF8String};
    }
    if (_failure) {
        _answered(*_failure);
    } else {
        _answered(std::string(static_cast<const char*>(_data.bytes), _data.length));
    }
    [session finishTasksAndInvalidate];
}

@end

namespace pello {

Subscription SessionFeedReader::read(const Request& request,
                                     std::function<void(const Answer& answer)> answered) {
    const auto wanted = std::make_shared<bool>(true);
    const std::weak_ptr<int> weakAlive = alive_;
    auto whileWanted = [wanted, weakAlive, answered = std::move(answered)](const Answer& answer) {
        if (*wanted && !weakAlive.expired()) {
            answered(answer);
        }
    };
    NSURLSessionConfiguration* configuration =
        NSURLSessionConfiguration.ephemeralSessionConfiguration;
    configuration.timeoutIntervalForResource =
        std::chrono::duration<double>(request.patience).count();
    PelloFeedTransfer* transfer =
        [[PelloFeedTransfer alloc] initWithRequest:request answered:std::move(whileWanted)];
    NSURLSession* session = [NSURLSession sessionWithConfiguration:configuration
                                                          delegate:transfer
                                                     delegateQueue:NSOperationQueue.mainQueue];
    NSURL* address = [NSURL URLWithString:stringObject(request.address)];
    if (address == nil) {
        address = [NSURL URLWithString:@"about:blank"]; // which no session reads: refused
    }
    [[session dataTaskWithURL:address] resume];
    return Subscription([wanted, session] {
        *wanted = false;
        [session invalidateAndCancel];
    });
}

} // namespace pello
