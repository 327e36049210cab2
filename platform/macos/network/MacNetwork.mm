#include "platform/macos/network/MacNetwork.h"

#include <chrono>
#include <utility>

#include "platform/macos/network/HttpsUrl.h"
#import "platform/macos/network/TLMSessionDelegate.h"
#include "platform/macos/Text.h"

namespace talmo {
namespace {

NSOperationQueue* makeQueue() {
  NSOperationQueue* const queue = [[NSOperationQueue alloc] init];
  queue.name = @"nl.brelm.talmo.network";
  queue.maxConcurrentOperationCount = 1;
  return queue;
}

NSURLSessionConfiguration* makeConfiguration() {
  NSURLSessionConfiguration* const configuration =
      NSURLSessionConfiguration.ephemeralSessionConfiguration;
  const NSTimeInterval seconds = std::chrono::duration<double>(Network::timeout).count();
  // Of a pause in the answer, and of the whole of it, redirects included.
  configuration.timeoutIntervalForRequest = seconds;
  configuration.timeoutIntervalForResource = seconds;
  configuration.requestCachePolicy = NSURLRequestReloadIgnoringLocalCacheData;
  configuration.URLCache = nil;
  configuration.HTTPCookieStorage = nil;
  configuration.URLCredentialStorage = nil;
  return configuration;
}

}  // namespace

MacNetwork::MacNetwork()
    : queue_(makeQueue()),
      delegate_([[TLMSessionDelegate alloc] init]),
      session_([NSURLSession sessionWithConfiguration:makeConfiguration() delegate:delegate_
                                        delegateQueue:queue_]) {}

MacNetwork::~MacNetwork() {
  @autoreleasepool {
    TLMSessionDelegate* const delegate = delegate_;
    NSOperation* const closing = [NSBlockOperation blockOperationWithBlock:^{
      [delegate close];
    }];
    [queue_ addOperations:@[ closing ] waitUntilFinished:YES];
    // The session keeps its delegate until then.
    [session_ invalidateAndCancel];
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
    TLMSessionDelegate* const delegate = delegate_;
    NSURLSessionDataTask* const task = [session_ dataTaskWithURL:address];
    [queue_ addOperationWithBlock:^{
      [delegate followTask:task completion:completion];
      [task resume];
    }];
  }
}

}  // namespace talmo
