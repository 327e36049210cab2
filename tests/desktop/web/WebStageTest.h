#pragma once

#include <gtest/gtest.h>

#include "tests/desktop/web/WebStage.h"

namespace talmo::test {

/// Tests that share one browser, each of which begins with nothing in it. A test may end the
/// browser; then the next one gets another.
class WebStageTest : public ::testing::Test {
 public:
  static WebStage& stage();
  static ImitationSite& site() { return stage().site(); }

 protected:
  WebStageTest();
};

}  // namespace talmo::test
