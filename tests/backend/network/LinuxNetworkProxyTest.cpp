#include <cstdlib>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/backend/network/ConnectProxy.h"
#include "tests/backend/network/NetworkDesk.h"

namespace talmo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class LinuxNetworkProxyTest : public testing::Test {
 protected:
  LinuxNetworkProxyTest() { desk.publish("/page", {.status = 200, .body = "the page"}); }
  ~LinuxNetworkProxyTest() override {
    ::unsetenv("https_proxy");
    ::unsetenv("no_proxy");
  }

  std::string url() { return desk.server().url("/page"); }
  std::string target() { return "127.0.0.1:" + std::to_string(desk.server().port()); }

  NetworkDesk desk;
};

TEST_F(LinuxNetworkProxyTest, GoesThroughTheProxyOfTheEnvironment) {
  const ConnectProxy proxy;
  ::setenv("https_proxy", proxy.url().c_str(), 1);
  EXPECT_EQ(desk.fetch(url()).body, "the page");
  EXPECT_THAT(proxy.targets(), ElementsAre(target()));
}

TEST_F(LinuxNetworkProxyTest, GoesPastTheProxyWhereTheEnvironmentSaysSo) {
  const ConnectProxy proxy;
  ::setenv("https_proxy", proxy.url().c_str(), 1);
  ::setenv("no_proxy", "example.test,127.0.0.1", 1);
  EXPECT_EQ(desk.fetch(url()).body, "the page");
  EXPECT_THAT(proxy.targets(), IsEmpty());
}

TEST_F(LinuxNetworkProxyTest, TakesARefusalOfTheProxyForNoAnswer) {
  const ConnectProxy proxy(false);
  ::setenv("https_proxy", proxy.url().c_str(), 1);
  const NetworkResult result = desk.fetch(url());
  EXPECT_THAT(result.error.value_or(""), HasSubstr("403"));
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(proxy.targets(), ElementsAre(target()));
}

TEST_F(LinuxNetworkProxyTest, TrustsNoMoreCertificatesThroughAProxy) {
  const ConnectProxy proxy;
  ::setenv("https_proxy", proxy.url().c_str(), 1);
  LinuxNetwork network;
  EXPECT_THAT(NetworkDesk::fetch(network, url()).error.value_or(""), HasSubstr("certificate"));
  EXPECT_THAT(proxy.targets(), ElementsAre(target()));
  EXPECT_THAT(desk.requested(), IsEmpty());
}

}  // namespace
}  // namespace talmo::test
