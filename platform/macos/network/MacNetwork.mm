#include "platform/macos/network/MacNetwork.h"

#include <chrono>
#include <utility>

#include "platform/macos/network/HttpsUrl.h"
#import "platform/macos/network/TLMTaskDelegate.h"
#include "platform/macos/Text.h"

namespace talmo {
namespace {

NSOperationQueue* makeQueue() {
  NSOperationQueue* const queue = [[NSOperationQueue alloc] init];
  queue.name = @"nl.brelm.talmo.network";
  queue.maxConcurrentOperationCount = 1;
  return queue;
}

/// Asks the server itself, and tells it nothing of earlier answers.
NSURLRequest* makeRequest(NSURL* url) {
  const NSTimeInterval seconds = std::chrono::duration<double>(Network::timeout).count();
  NSMutableURLRequest* const request =
      [NSMutableURLRequest requestWithURL:url cachePolicy:NSURLRequestReloadIgnoringLocalCacheData
                          timeoutInterval:seconds];
  request.HTTPShouldHandleCookies = NO;
  return request;
}

}  // namespace

MacNetwork::MacNetwork()
    : queue_(makeQueue()), delegate_([[TLMTaskDelegate alloc] initWithQueue:queue_]) {}

MacNetwork::~MacNetwork() {
  @autoreleasepool {
    TLMTaskDelegate* const delegate = delegate_;
    NSOperation* const closing = [NSBlockOperation blockOperationWithBlock:^{
      [delegate close];
    }];
    [queue_ addOperations:@[ closing ] waitUntilFinished:YES];
  }
}

void MacNetwork::get(const std::string& url, Completion completion) {
  @autoreleasepool {
    NSURL* const address =
        isHttpsUrl(url) ? [NSURL URLWithString:toNSString(url) encodingInvalidCharacters:NO] : nil;
    if (address == nil) {
      [queue_ addOperationWithBlock:^{
        completion({.error = "the URL is not an HTTPS one"});
      }];
      return;
    }
    TLMTaskDelegate* const delegate = delegate_;
    NSURLSessionDataTask* const task =
        [NSURLSession.sharedSession dataTaskWithRequest:makeRequest(address)];
    [queue_ addOperationWithBlock:^{
      [delegate followTask:task completion:completion];
    }];
  }
}

}  // namespace talmo
