#pragma once

#import <Foundation/Foundation.h>

#include "platform/Network.h"

@class TLMSessionDelegate;

namespace talmo {

/// The network by a `NSURLSession` that keeps nothing. Its delegate queue, a serial one of the
/// system's threads, owns everything under way and calls the completions. Proxies are those of the
/// system's settings.
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
  TLMSessionDelegate* const delegate_;
  NSURLSession* const session_;
};

}  // namespace talmo
