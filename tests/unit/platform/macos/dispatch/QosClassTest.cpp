#include <gtest/gtest.h>

#include "platform/macos/dispatch/QosClass.h"

namespace talmo::test {
namespace {

// The numbers are those of <sys/qos.h>.
TEST(QosClass, IsTheSystemsNumber) {
  EXPECT_EQ(qosClass(QualityOfService::unspecified), 0U);
  EXPECT_EQ(qosClass(QualityOfService::utility), 17U);
  EXPECT_EQ(qosClass(QualityOfService::userInitiated), 25U);
  EXPECT_EQ(qosClass(QualityOfService::userInteractive), 33U);
}

TEST(QosClass, IsHigherForWhatIsMoreUrgent) {
  EXPECT_LT(qosClass(QualityOfService::utility), qosClass(QualityOfService::userInitiated));
  EXPECT_LT(qosClass(QualityOfService::userInitiated), qosClass(QualityOfService::userInteractive));
}

}  // namespace
}  // namespace talmo::test
