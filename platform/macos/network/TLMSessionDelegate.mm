#import "platform/macos/network/TLMSessionDelegate.h"

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/macos/network/HttpsTransfer.h"
#include "platform/macos/Text.h"

@implementation TLMSessionDelegate {
  // By the tasks' identifiers, which are unique within a session.
  std::map<NSUInteger, talmo::HttpsTransfer> _transfers;
}

- (void)followTask:(NSURLSessionTask*)task completion:(talmo::Network::Completion)completion {
  _transfers.emplace(task.taskIdentifier, talmo::HttpsTransfer(std::move(completion)));
}

- (void)close {
  _transfers.clear();
}

- (void)URLSession:(NSURLSession*)session
                          task:(NSURLSessionTask*)task
    willPerformHTTPRedirection:(NSHTTPURLResponse*)response
                    newRequest:(NSURLRequest*)request
             completionHandler:(void (^)(NSURLRequest*))completionHandler {
  const auto found = _transfers.find(task.taskIdentifier);
  const bool follows =
      found != _transfers.end() && found->second.follow(talmo::toText(request.URL.absoluteString));
  // Without a request the answer would be the redirect itself.
  if (!follows) [task cancel];
  completionHandler(follows ? request : nil);
}

- (void)URLSession:(NSURLSession*)session
          dataTask:(NSURLSessionDataTask*)dataTask
    didReceiveData:(NSData*)data {
  const auto found = _transfers.find(dataTask.taskIdentifier);
  if (found == _transfers.end()) return;
  const std::string_view piece(static_cast<const char*>(data.bytes), data.length);
  if (!found->second.receive(piece)) [dataTask cancel];
}

- (void)URLSession:(NSURLSession*)session
                    task:(NSURLSessionTask*)task
    didCompleteWithError:(NSError*)error {
  const auto node = _transfers.extract(task.taskIdentifier);
  if (node.empty()) return;
  std::optional<std::string> words;
  if (error != nil) words = talmo::toText(error.localizedDescription);
  NSInteger status = 0;
  if ([task.response isKindOfClass:[NSHTTPURLResponse class]]) {
    status = static_cast<NSHTTPURLResponse*>(task.response).statusCode;
  } else if (!words) {
    words = "there is no answer over HTTP";
  }
  node.mapped().complete(std::move(words), static_cast<int>(status));
}

@end
