#include <memory>
#include <string>

#import <Foundation/Foundation.h>

#include "platform/macos/settings/MacUserDefaults.h"
#include "platform/macos/Text.h"
#include "tests/contract/UserDefaultsContract.h"

namespace talmo::test {
namespace {

/// A domain of this process's own, gone with the world.
class MacUserDefaultsWorld : public UserDefaultsWorld {
 public:
  MacUserDefaultsWorld() { removeDomain(); }
  ~MacUserDefaultsWorld() override { removeDomain(); }

  UserDefaults& defaults() override { return *defaults_; }
  void reopen() override { defaults_ = open(); }

 private:
  std::unique_ptr<MacUserDefaults> open() const {
    return std::make_unique<MacUserDefaults>([[NSUserDefaults alloc] initWithSuiteName:name_]);
  }

  void removeDomain() { [NSUserDefaults.standardUserDefaults removePersistentDomainForName:name_]; }

  NSString* const name_ = toNSString("nl.brelm.talmo.contract-" +
                                     std::to_string(NSProcessInfo.processInfo.processIdentifier));
  std::unique_ptr<MacUserDefaults> defaults_ = open();
};

INSTANTIATE_TEST_SUITE_P(Mac, UserDefaultsContract, testing::Values([] {
                           return std::make_unique<MacUserDefaultsWorld>();
                         }), [](const auto&) { return "Domain"; });

}  // namespace
}  // namespace talmo::test
