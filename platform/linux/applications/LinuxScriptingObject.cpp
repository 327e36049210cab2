#include "platform/linux/applications/LinuxScriptingObject.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include <systemd/sd-bus.h>

#include "platform/linux/applications/LinuxScriptingTrack.h"
#include "platform/linux/applications/MprisNames.h"
#include "platform/linux/applications/SessionBus.h"
#include "platform/linux/mediasession/PlayerProperties.h"

namespace talmo {
namespace {

constexpr const char* objectPath = "/org/mpris/MediaPlayer2";
constexpr const char* playerInterface = "org.mpris.MediaPlayer2.Player";
constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";

constexpr std::string_view currentTrackProperty = "currentTrack";
constexpr std::string_view playerStateProperty = "playerState";

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

bool isProperty(std::string_view selector) {
  return selector == currentTrackProperty || selector == playerStateProperty;
}

/// As in the players' own scripting dictionaries.
std::uint32_t codeOf(PlaybackStatus status) {
  switch (status) {
    case PlaybackStatus::playing:
      return 0x6B505350;  // 'kPSP'
    case PlaybackStatus::paused:
      return 0x6B505370;  // 'kPSp'
    case PlaybackStatus::stopped:
      break;
  }
  return 0x6B505353;  // 'kPSS'
}

BusCall askStatus(const std::string& name) {
  return {.destination = name,
          .path = objectPath,
          .interface = propertiesInterface,
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
  return find(selector) != nullptr || isProperty(selector);
}

void LinuxScriptingObject::send(std::string_view selector) {
  lastError_.reset();
  const Command* command = find(selector);
  if (command == nullptr) {
    lastError_ = "unknown command " + std::string(selector);
    return;
  }
  const Uptime start = std::chrono::steady_clock::now();
  const std::optional<std::string> name = instance(start);
  if (!name) return;
  lastInstances_->set(application_.bundleID, *name);
  call({.destination = *name,
        .path = objectPath,
        .interface = playerInterface,
        .member = command->method},
       start);
}

std::optional<ScriptingValue> LinuxScriptingObject::read(std::string_view property) {
  lastError_.reset();
  if (!isProperty(property)) {
    lastError_ = "unknown property " + std::string(property);
    return std::nullopt;
  }
  const Uptime start = std::chrono::steady_clock::now();
  const std::optional<std::string> name = instance(start);
  if (!name) return std::nullopt;
  const BusReply reply = call({.destination = *name,
                               .path = objectPath,
                               .interface = propertiesInterface,
                               .member = "GetAll",
                               .arguments = {playerInterface}},
                              start);
  if (!reply.message) return std::nullopt;
  PlayerState state = readPlayerProperties(reply.message.get());
  if (property == playerStateProperty) return codeOf(state.status);
  if (state.title.empty()) return std::nullopt;
  return std::make_shared<LinuxScriptingTrack>(std::move(state));
}

std::optional<std::string> LinuxScriptingObject::lastError() const {
  return lastError_;
}

std::optional<std::string> LinuxScriptingObject::instance(Uptime start) {
  const std::optional<std::vector<std::string>> names = mprisNames(application_, start + timeout_);
  if (!names) {
    lastError_ = "the session bus does not answer";
    return std::nullopt;
  }
  if (names->empty()) {
    lastError_ = "it is not on the session bus";
    return std::nullopt;
  }
  return chooseInstance(*names, start);
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

BusReply LinuxScriptingObject::call(const BusCall& call, Uptime start) {
  BusReply reply = SessionBus::ofThisThread().call(call, start + timeout_);
  if (reply.isTimeout) {
    const auto limit = std::chrono::duration_cast<std::chrono::milliseconds>(timeout_);
    lastError_ = "no answer within " + std::to_string(limit.count()) + " ms";
  } else if (!reply.message) {
    lastError_ = reply.error;
  }
  return reply;
}

}  // namespace talmo
