#pragma once

#import <Foundation/Foundation.h>

#include "platform/Network.h"

@class TLMTaskDelegate;

namespace talmo {

/// The network by the shared `NSURLSession`, with proxies as in the system's settings. A serial
/// queue of its own owns everything under way and calls the completions.
class MacNetwork : public Network {
 public:
  MacNetwork();
  /// Ends what is under way. Waits for a completion that runs; so it is not called by one.
  ~MacNetwork() override;
  MacNetwork(const MacNetwork&) = delete;
  MacNetwork& operator=(const MacNetwork&) = delete;

  void get(const std::string& url, Completion completion) override;

 private:
  NSOperationQueue* const queue_;
  TLMTaskDelegate* const delegate_;
};

}  // namespace talmo
