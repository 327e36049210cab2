#include <filesystem>
#include <fstream>
#include <memory>

#include "platform/linux/login/LinuxLoginItem.h"
#include "tests/contract/LoginItemContract.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/WithoutPrivileges.h"

namespace talmo::test {
namespace {

/// An autostart folder of the test's own, which is not there at first.
class LinuxLoginItemWorld : public LoginItemWorld {
 public:
  LoginItem& item() override { return *item_; }
  void reopen() override { item_ = make(); }
  void switchOff() override {
    std::ofstream(autostart() / "nl.brelm.Talmo.desktop", std::ios::app) << "Hidden=true\n";
  }
  void setFails(bool fails) override {
    using std::filesystem::perms;
    scope_.reset();
    for (const std::filesystem::path& folder : {folder_.path(), autostart()}) {
      if (!std::filesystem::exists(folder)) continue;
      std::filesystem::permissions(
          folder, fails ? perms::owner_read | perms::owner_exec : perms::owner_all);
    }
    if (fails) scope_ = std::make_unique<WithoutPrivileges>(folder_.path());
  }

 private:
  std::filesystem::path autostart() const { return folder_.path() / "autostart"; }
  std::unique_ptr<LoginItem> make() const {
    return std::make_unique<LinuxLoginItem>("/bin/true", autostart());
  }

  const TemporaryFolder folder_;
  std::unique_ptr<LoginItem> item_ = make();
  std::unique_ptr<WithoutPrivileges> scope_;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Linux, LoginItemContract,
                         testing::Values([] { return std::make_unique<LinuxLoginItemWorld>(); }));

}  // namespace talmo::test
