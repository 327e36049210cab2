#pragma once

#include <string>

#include "support/Time.h"

namespace talmo::test {

/// One application's use of one file, as the desktop's list of recently used files has it.
struct RecentFile {
  std::string url;
  std::string applicationName;
  std::string command;
  /// In whole seconds.
  Date when;
};

/// Adds it to the list in the test's data folder.
void addToRecentFiles(const RecentFile& file);

}  // namespace talmo::test
