#include "tests/desktop/web/WebStageTest.h"

#include <memory>

namespace talmo::test {
namespace {

/// Goes after the last test, not with the program's statics.
class SharedStage : public ::testing::Environment {
 public:
  void TearDown() override { stage = nullptr; }

  std::unique_ptr<WebStage> stage;
};

SharedStage* const shared =
    static_cast<SharedStage*>(::testing::AddGlobalTestEnvironment(new SharedStage));

}  // namespace

WebStageTest::WebStageTest() {
  if (shared->stage && !shared->stage->browser().process().isRunning()) shared->stage = nullptr;
  if (!shared->stage) shared->stage = std::make_unique<WebStage>();
  stage().clear();
}

WebStage& WebStageTest::stage() {
  return *shared->stage;
}

}  // namespace talmo::test
