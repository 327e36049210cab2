#import "platform/macos/network/TLMTaskDelegate.h"

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <dispatch/dispatch.h>

#include "platform/macos/network/HttpsTransfer.h"
#include "platform/macos/Text.h"

namespace {

/// A task and what has come of it.
struct Followed {
  NSURLSessionTask* task;
  talmo::HttpsTransfer transfer;
};

dispatch_time_t deadline() {
  return dispatch_time(
      DISPATCH_TIME_NOW,
      std::chrono::duration_cast<std::chrono::nanoseconds>(talmo::Network::timeout).count());
}

}  // namespace

@implementation TLMTaskDelegate {
  NSOperationQueue* _queue;
  // By the tasks' identifiers, which are unique within a session. Belongs to the queue.
  std::map<NSUInteger, Followed> _followed;
}

- (instancetype)initWithQueue:(NSOperationQueue*)queue {
  self = [super init];
  if (self != nil) _queue = queue;
  return self;
}

- (void)followTask:(NSURLSessionDataTask*)task completion:(talmo::Network::Completion)completion {
  const NSUInteger identifier = task.taskIdentifier;
  _followed.emplace(identifier, Followed{task, talmo::HttpsTransfer(std::move(completion))});
  task.delegate = self;
  // The request's own time-out is of a pause in the answer.
  __weak TLMTaskDelegate* const weakSelf = self;
  dispatch_after(deadline(), dispatch_get_global_queue(QOS_CLASS_UTILITY, 0), ^{
    [weakSelf expireTask:identifier];
  });
  [task resume];
}

- (void)expireTask:(NSUInteger)identifier {
  [_queue addOperationWithBlock:^{
    const auto found = self->_followed.find(identifier);
    if (found == self->_followed.end()) return;
    found->second.transfer.expire();
    [found->second.task cancel];
  }];
}

- (void)close {
  for (const auto& [identifier, followed] : _followed) [followed.task cancel];
  _followed.clear();
}

- (void)URLSession:(NSURLSession*)session
                          task:(NSURLSessionTask*)task
    willPerformHTTPRedirection:(NSHTTPURLResponse*)response
                    newRequest:(NSURLRequest*)request
             completionHandler:(void (^)(NSURLRequest*))completionHandler {
  [_queue addOperationWithBlock:^{
    const auto found = self->_followed.find(task.taskIdentifier);
    const bool follows = found != self->_followed.end() &&
                         found->second.transfer.follow(talmo::toText(request.URL.absoluteString));
    // Without a request the answer would be the redirect itself.
    if (!follows) [task cancel];
    completionHandler(follows ? request : nil);
  }];
}

- (void)URLSession:(NSURLSession*)session
          dataTask:(NSURLSessionDataTask*)dataTask
    didReceiveData:(NSData*)data {
  [_queue addOperationWithBlock:^{
    const auto found = self->_followed.find(dataTask.taskIdentifier);
    if (found == self->_followed.end()) return;
    const std::string_view piece(static_cast<const char*>(data.bytes), data.length);
    if (!found->second.transfer.receive(piece)) [dataTask cancel];
  }];
}

- (void)URLSession:(NSURLSession*)session
             dataTask:(NSURLSessionDataTask*)dataTask
    willCacheResponse:(NSCachedURLResponse*)proposedResponse
    completionHandler:(void (^)(NSCachedURLResponse*))completionHandler {
  // What was asked for stays in memory, and is not on the disk for others to see.
  completionHandler(nil);
}

- (void)URLSession:(NSURLSession*)session
                    task:(NSURLSessionTask*)task
    didCompleteWithError:(NSError*)error {
  [_queue addOperationWithBlock:^{
    auto node = self->_followed.extract(task.taskIdentifier);
    if (node.empty()) return;
    std::optional<std::string> words;
    if (error != nil) words = talmo::toText(error.localizedDescription);
    NSInteger status = 0;
    if ([task.response isKindOfClass:[NSHTTPURLResponse class]]) {
      status = static_cast<NSHTTPURLResponse*>(task.response).statusCode;
    } else if (!words) {
      words = "there is no answer over HTTP";
    }
    node.mapped().transfer.complete(std::move(words), static_cast<int>(status));
  }];
}

@end
