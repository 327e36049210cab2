#include <memory>

#include "platform/linux/settings/LinuxUserDefaults.h"
#include "tests/backend/settings/SettingsFolder.h"
#include "tests/contract/UserDefaultsContract.h"
#include "tests/support/TestPlatform.h"

namespace talmo::test {
namespace {

/// A real file, read anew at each reopening.
class LinuxUserDefaultsWorld : public UserDefaultsWorld {
 public:
  UserDefaults& defaults() override { return *defaults_; }
  void reopen() override { defaults_ = std::make_unique<LinuxUserDefaults>(folder_.file()); }

 private:
  const TestPlatform platform_;
  const SettingsFolder folder_;
  std::unique_ptr<LinuxUserDefaults> defaults_ =
      std::make_unique<LinuxUserDefaults>(folder_.file());
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Linux, UserDefaultsContract,
                         testing::Values([] { return std::make_unique<LinuxUserDefaultsWorld>(); }),
                         [](const auto&) { return "File"; });

}  // namespace talmo::test
