#include "platform/linux/log/LinuxLog.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <limits.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <syslog.h>
#include <time.h>

// The place in the source would be this file's for every line.
#define SD_JOURNAL_SUPPRESS_LOCATION
#include <systemd/sd-journal.h>

#include "platform/linux/log/LogText.h"
#include "support/LogLine.h"
#include "support/MutexLock.h"

namespace talmo {
namespace {

std::string_view name(LogLevel level) {
  switch (level) {
    case LogLevel::debug:
      return "debug";
    case LogLevel::info:
      return "info";
    case LogLevel::notice:
      return "notice";
    case LogLevel::error:
      return "error";
  }
  return "notice";
}

int priority(LogLevel level) {
  switch (level) {
    case LogLevel::debug:
      return LOG_DEBUG;
    case LogLevel::info:
      return LOG_INFO;
    case LogLevel::notice:
      return LOG_NOTICE;
    case LogLevel::error:
      return LOG_ERR;
  }
  return LOG_NOTICE;
}

/// The local time of day with milliseconds.
std::string timeOfDay() {
  using namespace std::chrono;
  const auto now = time_point_cast<milliseconds>(system_clock::now());
  const time_t seconds = system_clock::to_time_t(floor<std::chrono::seconds>(now));
  tm local{};
  ::localtime_r(&seconds, &local);
  std::array<char, 16> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%H:%M:%S", &local);
  const auto fraction = (now.time_since_epoch() % 1s).count();
  return std::string(text.data(), length) + "." + std::to_string(1000 + fraction).substr(1);
}

}  // namespace

LinuxLog::LinuxLog(int descriptor)
    : descriptor_(descriptor),
      toJournal_(isConnectedToJournal(descriptor, std::getenv("JOURNAL_STREAM"))) {}

void LinuxLog::write(LogLevel level, std::string_view subsystem, std::string_view category,
                     std::string_view message) {
  if (toJournal_) {
    std::vector<std::string> fields = journalFields(level, subsystem, category, message);
    std::vector<iovec> parts;
    parts.reserve(fields.size());
    for (std::string& field : fields) parts.push_back({field.data(), field.size()});
    ::sd_journal_sendv(parts.data(), static_cast<int>(parts.size()));
    return;
  }
  std::string line = timeOfDay();
  line += ' ';
  line += name(level);
  line += " [";
  line += oneLogLine(category);
  line += "] ";
  line += oneLogLine(message);
  writeLine(line);
}

bool LinuxLog::isConnectedToJournal(int descriptor, const char* stream) {
  struct stat status{};
  if (stream == nullptr || ::fstat(descriptor, &status) != 0) return false;
  return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino) == stream;
}

std::vector<std::string> LinuxLog::journalFields(LogLevel level, std::string_view subsystem,
                                                 std::string_view category,
                                                 std::string_view message) {
  return {
      "MESSAGE=" + oneLogLine(message),
      "PRIORITY=" + std::to_string(priority(level)),
      "SYSLOG_IDENTIFIER=talmo",
      "TALMO_SUBSYSTEM=" + oneLogLine(subsystem),
      "TALMO_CATEGORY=" + oneLogLine(category),
  };
}

void LinuxLog::writeLine(std::string_view line) {
  // A pipe takes this much in one piece or, as `poll` says beforehand, not at all.
  const std::string piece = std::string(cutToBytes(line, PIPE_BUF - 1)) + '\n';
  const MutexLock lock(descriptorLock_);
  pollfd poll{.fd = descriptor_, .events = POLLOUT, .revents = 0};
  if (::poll(&poll, 1, 0) != 1 || poll.revents != POLLOUT) return;
  [[maybe_unused]] const ssize_t ignored = ::write(descriptor_, piece.data(), piece.size());
}

}  // namespace talmo
