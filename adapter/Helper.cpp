#include "adapter/Helper.h"

#include <optional>
#include <string>
#include <system_error>
#include <tuple>

#include "adapter/CommandLine.h"
#include "adapter/SessionFields.h"
#include "adapter/SessionStream.h"
#include "adapter/WriteWhole.h"

namespace talmo {
namespace {

constexpr int success = 0;
constexpr int failure = 1;
constexpr int usageError = 2;

void say(int errors, const std::string& message) {
  std::ignore = writeWhole(errors, "mediaremote-adapter: " + message + "\n");
}

int cannotWrite(int errors, const std::error_code& error) {
  say(errors, "cannot write: " + error.message());
  return failure;
}

/// Whether this is what writing to a closed standard output gives.
bool isClosed(const std::error_code& error) {
  return error == std::errc::broken_pipe || error == std::errc::bad_file_descriptor;
}

int stream(SessionSource& source, int output, int errors) {
  SessionStream stream;
  do {
    const std::optional<std::string> line = stream.next(source.current(true));
    if (!line) continue;
    const std::error_code error = writeWhole(output, *line);
    if (isClosed(error)) return success;
    if (error) return cannotWrite(errors, error);
  } while (source.waitForChange());
  return success;
}

int get(SessionSource& source, bool wantsArtwork, int output, int errors) {
  SessionFields fields = SessionFields::of(source.current(wantsArtwork));
  if (!wantsArtwork) fields.artwork = nullptr;
  std::string line;
  appendObject(line, fields.values, fields.artwork.get());
  line += '\n';
  const std::error_code error = writeWhole(output, line);
  return error ? cannotWrite(errors, error) : success;
}

int send(SessionSource& source, int command, int errors) {
  if (source.send(command)) return success;
  say(errors, "command " + std::to_string(command) + " was not delivered");
  return failure;
}

}  // namespace

int runHelper(std::span<const std::string> arguments,
              const std::function<std::unique_ptr<SessionSource>()>& makeSource, int output,
              int errors) {
  const std::optional<CommandLine> commandLine = CommandLine::parse(arguments);
  if (!commandLine) {
    say(errors, "usage: mediaremote-adapter.pl FRAMEWORK stream|get [--no-artwork]|send COMMAND");
    return usageError;
  }
  const std::unique_ptr<SessionSource> source = makeSource();
  switch (commandLine->run) {
    case CommandLine::Run::stream:
      return stream(*source, output, errors);
    case CommandLine::Run::get:
      return get(*source, commandLine->wantsArtwork, output, errors);
    case CommandLine::Run::send:
      return send(*source, commandLine->command, errors);
  }
  return failure;
}

}  // namespace talmo
