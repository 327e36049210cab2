// A child that does what its arguments say, one after the other:
//
//     write N FILE    writes what is in the file to descriptor N
//     flood N         writes to descriptor N without end
//     wait MS         sleeps
//     close N         closes descriptor N
//     ignore          ignores SIGTERM
//     exit STATUS     exits
//     signal NUMBER   ends itself by that signal
//     live            does nothing any more
//     show            writes its arguments from here on, each followed by a zero byte
//     state           writes its open descriptors, blocked signals and reactions to signals

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

void writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count <= 0) std::_Exit(99);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void writeFile(int descriptor, const char* path) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  writeAll(descriptor, bytes);
}

void writeState() {
  std::string text = "descriptors";
  for (int descriptor = 0; descriptor < 1024; ++descriptor) {
    if (::fcntl(descriptor, F_GETFD) >= 0) text += " " + std::to_string(descriptor);
  }
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("SigBlk:") || line.starts_with("SigIgn:") || line.starts_with("SigCgt:")) {
      text += "; " + line.substr(0, 6) + " " + line.substr(line.find_last_of("\t ") + 1);
    }
  }
  writeAll(STDOUT_FILENO, text);
}

}  // namespace

int main(int count, char** arguments) {
  // Whatever becomes of the test, this ends.
  constexpr unsigned longest = 100;
  ::alarm(longest);
  int next = 1;
  const auto number = [&] { return next < count ? std::atoi(arguments[next++]) : 0; };
  while (next < count) {
    const std::string_view step = arguments[next++];
    if (step == "write") {
      const int descriptor = number();
      writeFile(descriptor, arguments[next++]);
    } else if (step == "flood") {
      const std::string bytes(4096, 'x');
      for (const int descriptor = number();;) writeAll(descriptor, bytes);
    } else if (step == "wait") {
      ::poll(nullptr, 0, number());
    } else if (step == "close") {
      ::close(number());
    } else if (step == "ignore") {
      std::signal(SIGTERM, SIG_IGN);
    } else if (step == "exit") {
      std::_Exit(number());
    } else if (step == "signal") {
      ::raise(number());
    } else if (step == "live") {
      while (true) ::pause();
    } else if (step == "show") {
      for (; next < count; ++next) {
        writeAll(STDOUT_FILENO, std::string_view(arguments[next]));
        writeAll(STDOUT_FILENO, std::string_view("\0", 1));
      }
    } else if (step == "state") {
      writeState();
    } else {
      return 98;
    }
  }
  return 0;
}
