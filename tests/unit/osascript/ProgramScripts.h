#pragma once

#include <string>

namespace talmo::test {

/// The two vocabularies that the program writes for.
enum class Dialect { safari, chromium };

/// The scripts of the program for "test.browser", as they arrive here.
/// Lists the tabs of all web players.
std::string scanScript(Dialect dialect);

/// Runs JavaScript in, or brings forward, the tab at `url`, or else the first one of YouTube. Both
/// texts stand in the script as they are given, escaped where they have to be.
std::string javaScriptScript(Dialect dialect, const std::string& url, const std::string& source);
std::string focusScript(Dialect dialect, const std::string& url);

}  // namespace talmo::test
