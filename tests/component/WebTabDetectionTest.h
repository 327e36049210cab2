#pragma once

#include <string>

#include "tests/component/WebTest.h"
#include "web/WebTabDetection.h"

namespace talmo::test {

class WebTabDetectionTest : public WebTest {
 protected:
  WebTabDetection::Matches refresh() {
    WebTabDetection::Matches matches;
    run([&] { matches = WebTabDetection::refreshMatches(); });
    return matches;
  }

  /// How many scans were made of machines with one browser.
  std::size_t scans() { return browsers().scripts(Kind::scan).size(); }
};

}  // namespace talmo::test
