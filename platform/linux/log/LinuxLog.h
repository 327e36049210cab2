#pragma once

#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "platform/Log.h"
#include "support/Mutex.h"

namespace talmo {

/// The log of a Linux program: the journal, with fields of its own, when standard error is
/// connected to it, and lines on standard error otherwise: "12:34:56.789 info [coordinator]
/// message".
///
/// Nobody waits for a reader: a line that standard error cannot take at this moment is lost, as
/// the thread that writes may be the one that the keyboard waits for.
class LinuxLog : public Log {
 public:
  /// `descriptor` stands for standard error and stays open for as long as the log lives, or is
  /// closed for good, which loses the lines.
  explicit LinuxLog(int descriptor = STDERR_FILENO);

  void write(LogLevel level, std::string_view subsystem, std::string_view category,
             std::string_view message) override;

  /// Whether `descriptor` is what `stream`, the value of JOURNAL_STREAM, names: its device and
  /// inode number with a colon in between (systemd.exec(5)).
  static bool isConnectedToJournal(int descriptor, const char* stream);

  /// The fields of a journal entry, as "NAME=value".
  static std::vector<std::string> journalFields(LogLevel level, std::string_view subsystem,
                                                std::string_view category,
                                                std::string_view message);

 private:
  void writeLine(std::string_view line);

  const int descriptor_;
  const bool toJournal_;
  Mutex descriptorLock_;
};

}  // namespace talmo
