#pragma once

#include <optional>
#include <vector>

#include "tests/component/WebTest.h"
#include "web/WebTabScanner.h"

namespace talmo::test {

class WebTabScannerTest : public WebTest {
 protected:
  std::vector<WebTabMatch> scan() {
    std::vector<WebTabMatch> matches;
    run([&] { matches = WebTabScanner::scan(); });
    return matches;
  }

  /// Runs a script that Safari answers as `script` says.
  std::optional<OsascriptResult> runOsascript(const Script& script, Duration timeout) {
    browsers().setScript(safari, Kind::javaScript, script);
    std::optional<OsascriptResult> result;
    run([&] {
      result = WebTabScanner::runOsascript("tell application id \"com.apple.Safari\"", timeout);
    });
    return result;
  }
};

}  // namespace talmo::test
