#include "platform/linux/applications/LinuxScriptingObject.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include <systemd/sd-bus.h>

#include "platform/linux/applications/BusCall.h"
#include "platform/linux/applications/BusReply.h"
#include "platform/linux/applications/MprisNames.h"
#include "platform/linux/applications/SessionBus.h"

namespace talmo {
namespace {

constexpr const char* objectPath = "/org/mpris/MediaPlayer2";
constexpr const char* playerInterface = "org.mpris.MediaPlayer2.Player";

struct Command {
  std::string_view selector;
  const char* method;
};

constexpr std::array<Command, 3> commands{
    {{"playpause", "PlayPause"}, {"nextTrack", "Next"}, {"previousTrack", "Previous"}}};

const Command* find(std::string_view selector) {
  const auto* const found = std::ranges::find(commands, selector, &Command::selector);
  return found == commands.end() ? nullptr : found;
}

BusCall askStatus(const std::string& name) {
  return {.destination = name,
          .path = objectPath,
          .interface = "org.freedesktop.DBus.Properties",
          .member = "Get",
          .arguments = {playerInterface, "PlaybackStatus"}};
}

/// How much a command is meant for the instance that replied so to `askStatus`.
enum class Rank { silent, answers, paused, playing };

Rank rankOf(const BusReply& reply) {
  if (!reply.message) return Rank::silent;
  const char* status = nullptr;
  const int result = sd_bus_message_read(reply.message.get(), "v", "s", &status);
  // The same reply may be read once more.
  sd_bus_message_rewind(reply.message.get(), 1);
  if (result <= 0) return Rank::answers;
  const std::string_view text(status);
  if (text == "Playing") return Rank::playing;
  return text == "Paused" ? Rank::paused : Rank::answers;
}

}  // namespace

LinuxScriptingObject::LinuxScriptingObject(const LinuxApplication& application,
                                           std::shared_ptr<LastInstances> lastInstances)
    : application_(application), lastInstances_(std::move(lastInstances)) {}

void LinuxScriptingObject::setTimeout(long ticks) {
  timeout_ = std::chrono::duration_cast<Duration>(
      std::chrono::duration<long, std::ratio<1, 60>>(std::max(ticks, 0L)));
}

bool LinuxScriptingObject::respondsTo(std::string_view selector) const {
  return find(selector) != nullptr;
}

void LinuxScriptingObject::send(std::string_view selector) {
  lastError_ = trySend(selector);
}

std::optional<std::string> LinuxScriptingObject::lastError() const {
  return lastError_;
}

std::optional<std::string> LinuxScriptingObject::trySend(std::string_view selector) {
  const Command* command = find(selector);
  if (command == nullptr) return "unknown command " + std::string(selector);
  const Uptime start = std::chrono::steady_clock::now();
  const Uptime deadline = start + timeout_;
  const std::optional<std::vector<std::string>> names = mprisNames(application_, deadline);
  if (!names) return "the session bus does not answer";
  if (names->empty()) return "it is not on the session bus";
  const std::string name = chooseInstance(*names, start);
  lastInstances_->set(application_.bundleID, name);
  const BusReply reply = SessionBus::ofThisThread().call({.destination = name,
                                                          .path = objectPath,
                                                          .interface = playerInterface,
                                                          .member = command->method},
                                                         deadline);
  if (reply.message) return std::nullopt;
  return reply.isTimeout ? noAnswer() : reply.error;
}

std::string LinuxScriptingObject::chooseInstance(const std::vector<std::string>& names,
                                                 Uptime start) const {
  if (names.size() == 1) return names.front();
  std::vector<BusCall> questions;
  std::ranges::transform(names, std::back_inserter(questions), askStatus);
  // An instance that hangs must leave enough time to send to one that does not.
  const std::vector<BusReply> replies = SessionBus::ofThisThread().callAll(
      questions, start + timeout_ / 4,
      [](const BusReply& reply) { return rankOf(reply) == Rank::playing; });
  const std::string last = lastInstances_->of(application_.bundleID);
  std::pair<Rank, bool> best{};
  std::size_t chosen = 0;
  for (std::size_t index = 0; index < names.size(); ++index) {
    const std::pair<Rank, bool> merit{rankOf(replies[index]), names[index] == last};
    if (merit > best) {
      best = merit;
      chosen = index;
    }
  }
  return names[chosen];
}

std::string LinuxScriptingObject::noAnswer() const {
  const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(timeout_).count();
  return "no answer within " + std::to_string(milliseconds) + " ms";
}

}  // namespace talmo
