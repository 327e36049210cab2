// What the program starts where it would start /usr/bin/osascript on a Mac.

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/linux/osascript/Osascript.h"
#include "platform/linux/osascript/RunningBrowsers.h"

int main(int count, char** arguments) {
  // A program may be started without even its own name.
  const std::vector<std::string> own(arguments + std::min(count, 1), arguments + count);
  const auto answer = talmo::Osascript::run(own, talmo::runningBrowser);
  std::fwrite(answer.errors.data(), 1, answer.errors.size(), stderr);
  const std::size_t written = std::fwrite(answer.output.data(), 1, answer.output.size(), stdout);
  const bool isWritten = written == answer.output.size() && std::fflush(stdout) == 0;
  return isWritten ? answer.status : 1;
}
