#pragma once

#include <memory>
#include <QApplication>

#include <gtest/gtest.h>

#include "tests/support/PrivateBus.h"

namespace talmo::test {

/// The application of a test program that shows widgets: on a platform without a display, with the
/// font that the kept pictures are in, with a screen each of 100, 150 and 200 %, and with a session
/// bus of its own. It adds itself to the environments of the program that it is linked to.
class ViewApplication : public testing::Environment {
 public:
  void SetUp() override;
  void TearDown() override;

 private:
  // The person's own settings must not be looked at.
  std::unique_ptr<PrivateBus> bus_;
  std::unique_ptr<QApplication> application_;
};

}  // namespace talmo::test
