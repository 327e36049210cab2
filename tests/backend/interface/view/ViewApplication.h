#pragma once

#include <memory>
#include <QApplication>

#include <gtest/gtest.h>

namespace talmo::test {

/// The application of a test program that shows widgets: on a platform without a display, with the
/// font that the kept pictures are in, with a screen each of 100, 150 and 200 %. The program adds
/// it to its environments.
class ViewApplication : public testing::Environment {
 public:
  void SetUp() override;
  void TearDown() override;

 private:
  std::unique_ptr<QApplication> application_;
};

}  // namespace talmo::test
