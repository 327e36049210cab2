#include "platform/linux/mediasession/MprisSessions.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <utility>

#include <systemd/sd-bus.h>

#include "platform/linux/applications/ProcessTable.h"
#include "platform/linux/mediasession/PlayerIdentity.h"
#include "platform/linux/mediasession/PlayerProperties.h"

namespace talmo {
namespace {

using namespace std::chrono_literals;

// How long players have to answer, all together; and those that did not the last time.
constexpr Duration patience = 500ms;
constexpr Duration littlePatience = 50ms;
constexpr Duration commandTime = 1s;

// A burst of changes ends with a pause of the first length, or after the second.
constexpr Duration quietTime = 30ms;
constexpr Duration longestBurst = 150ms;

// Between one attempt and the next at a bus that is not there or a player that does not answer.
constexpr Duration calmPace = 2s;

// A desktop has a handful.
constexpr std::size_t mostPlayers = 64;

constexpr const char* playerPath = "/org/mpris/MediaPlayer2";
constexpr const char* rootInterface = "org.mpris.MediaPlayer2";
constexpr const char* playerInterface = "org.mpris.MediaPlayer2.Player";
constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";

// By number of the command.
constexpr std::array<const char*, 6> methods{"Play", "Pause", "PlayPause",
                                             "Stop", "Next",  "Previous"};

Uptime now() {
  return std::chrono::steady_clock::now();
}

BusCall askBus(std::string member, std::vector<std::string> arguments) {
  return {.destination = "org.freedesktop.DBus",
          .path = "/org/freedesktop/DBus",
          .interface = "org.freedesktop.DBus",
          .member = std::move(member),
          .arguments = std::move(arguments)};
}

BusCall askPlayer(const std::string& busName, std::string member,
                  std::vector<std::string> arguments) {
  return {.destination = busName,
          .path = playerPath,
          .interface = propertiesInterface,
          .member = std::move(member),
          .arguments = std::move(arguments)};
}

std::string textOf(const BusReply& reply, const char* signature) {
  const char* text = nullptr;
  if (!reply.message || sd_bus_message_has_signature(reply.message.get(), signature) <= 0) {
    return {};
  }
  const bool isVariant = *signature == 'v';
  const int result = isVariant ? sd_bus_message_read(reply.message.get(), "v", "s", &text)
                               : sd_bus_message_read(reply.message.get(), "s", &text);
  return result > 0 ? text : "";
}

ProcessIdentifier processOf(const BusReply& reply) {
  std::uint32_t process = 0;
  if (!reply.message || sd_bus_message_read_basic(reply.message.get(), 'u', &process) <= 0) {
    return 0;
  }
  return static_cast<ProcessIdentifier>(process);
}

/// The players' names in a reply to ListNames, sorted, so that everybody sees the same order.
std::vector<std::string> playerNamesOf(const BusReply& reply) {
  std::vector<std::string> names;
  if (sd_bus_message_enter_container(reply.message.get(), 'a', "s") <= 0) return names;
  const char* name = nullptr;
  while (sd_bus_message_read_basic(reply.message.get(), 's', &name) > 0) {
    if (isPlayerName(name)) names.emplace_back(name);
  }
  std::ranges::sort(names);
  if (names.size() > mostPlayers) names.resize(mostPlayers);
  return names;
}

/// The four answers about one player.
struct Answers {
  const BusReply& owner;
  const BusReply& process;
  const BusReply& desktopEntry;
  const BusReply& properties;
};
constexpr std::size_t answersPerPlayer = 4;

/// What is known of the player now, with `before` for what was known.
MprisPlayer updated(MprisPlayer before, const std::string& busName, const std::string& uniqueName,
                    const Answers& answers) {
  MprisPlayer player = std::move(before);
  player.busName = busName;
  player.process = processOf(answers.process);
  if (!answers.desktopEntry.isTimeout || player.bundleIdentifier.empty()) {
    player.bundleIdentifier = bundleIdentifierOf(busName, ProcessTable::executable(player.process),
                                                 textOf(answers.desktopEntry, "v"));
  }
  player.hasAnswered = !answers.properties.isTimeout;
  if (sd_bus_message* const reply = answers.properties.message.get()) {
    const char* const sender = sd_bus_message_get_sender(reply);
    // Anybody else took the name over while this went on, and a signal tells of that.
    if (sender != nullptr && sender == uniqueName) player.state = readPlayerProperties(reply);
  } else if (player.hasAnswered) {
    player.state = PlayerState();
  }
  return player;
}

MprisSession sessionOf(const MprisPlayer& player) {
  const PlayerState& state = *player.state;
  return {.bundleIdentifier = player.bundleIdentifier,
          .process = player.process,
          .trackIdentifier = state.trackIdentifier,
          .title = state.title,
          .artist = state.artist,
          .album = state.album,
          .isPlaying = state.status == PlaybackStatus::playing,
          .rate = state.rate,
          .elapsedTime = state.elapsedTime,
          .duration = state.duration,
          .artwork = nullptr};
}

}  // namespace

std::optional<MprisSession> MprisSessions::current(bool wantsArtwork) {
  observe(now() + patience);
  if (!owner_) return std::nullopt;
  const MprisPlayer& player = players_.at(*owner_);
  MprisSession session = sessionOf(player);
  if (wantsArtwork) session.artwork = artworks_.read(player.state->artworkUrl);
  return session;
}

bool MprisSessions::send(int command) {
  if (command < 0 || static_cast<std::size_t>(command) >= methods.size()) return false;
  const Uptime deadline = now() + commandTime;
  observe(now() + patience);
  if (!owner_) return false;
  const BusReply reply = bus_.call({.destination = *owner_,
                                    .path = playerPath,
                                    .interface = playerInterface,
                                    .member = methods[static_cast<std::size_t>(command)],
                                    .arguments = {}},
                                   deadline);
  return reply.message != nullptr;
}

void MprisSessions::observe(Uptime deadline) {
  const std::vector<BusReply> replies =
      bus_.callAll({askBus("ListNames", {}), askBus("GetId", {})}, deadline);
  bool isAnswered =
      std::ranges::all_of(replies, [](const BusReply& reply) { return reply.message != nullptr; });
  if (isAnswered) {
    std::vector<std::string> quick;
    std::vector<std::string> slow;
    for (std::string& name : playerNamesOf(replies[0])) {
      (isSlow(name) ? slow : quick).push_back(std::move(name));
    }
    std::map<std::string, MprisPlayer> found;
    isAnswered =
        ask(quick, deadline, found) && ask(slow, std::min(deadline, now() + littlePatience), found);
    if (isAnswered) {
      players_ = std::move(found);
      owner_ = updateOrder(textOf(replies[1], "s"));
    }
  } else if (!std::ranges::any_of(replies, &BusReply::isTimeout)) {
    players_.clear();
    owner_.reset();
  }
  const bool isComplete = isAnswered && std::ranges::all_of(players_, [](const auto& named) {
                            return named.second.hasAnswered;
                          });
  nextQuestion_ = isComplete ? std::nullopt : std::optional(now() + calmPace);
}

bool MprisSessions::ask(const std::vector<std::string>& busNames, Uptime deadline,
                        std::map<std::string, MprisPlayer>& found) {
  std::vector<BusCall> calls;
  calls.reserve(busNames.size() * answersPerPlayer);
  for (const std::string& name : busNames) {
    calls.push_back(askBus("GetNameOwner", {name}));
    calls.push_back(askBus("GetConnectionUnixProcessID", {name}));
    calls.push_back(askPlayer(name, "Get", {rootInterface, "DesktopEntry"}));
    calls.push_back(askPlayer(name, "GetAll", {playerInterface}));
  }
  const std::vector<BusReply> replies = bus_.callAll(calls, deadline);
  for (std::size_t index = 0; index < busNames.size(); ++index) {
    const BusReply* const first = &replies[index * answersPerPlayer];
    const Answers answers{first[0], first[1], first[2], first[3]};
    if (answers.owner.isTimeout) return false;
    const std::string uniqueName = textOf(answers.owner, "s");
    // Gone by now, or a player with a second name.
    if (uniqueName.empty() || found.contains(uniqueName)) continue;
    const auto before = players_.find(uniqueName);
    found.emplace(uniqueName, updated(before == players_.end() ? MprisPlayer() : before->second,
                                      busNames[index], uniqueName, answers));
  }
  return true;
}

bool MprisSessions::isSlow(const std::string& busName) const {
  return std::ranges::any_of(players_, [&](const auto& named) {
    return named.second.busName == busName && !named.second.hasAnswered;
  });
}

std::optional<std::string> MprisSessions::updateOrder(const std::string& busId) {
  std::vector<const std::pair<const std::string, MprisPlayer>*> sorted;
  sorted.reserve(players_.size());
  for (const auto& named : players_) sorted.push_back(&named);
  std::ranges::sort(sorted, {}, [](const auto* named) { return named->second.busName; });
  std::vector<SessionOrder::Seen> seen;
  for (const auto* named : sorted) {
    const std::optional<PlayerState>& state = named->second.state;
    seen.push_back({named->first, state ? std::optional(state->status) : std::nullopt});
  }
  // Others may have seen more. What could not be recorded was seen by this object only.
  const std::optional<SessionOrder> recorded =
      isRecorded_ ? record_.read(busId) : std::optional<SessionOrder>();
  order_ = recorded.value_or(order_).observe(seen);
  if (recorded != order_) isRecorded_ = record_.write(busId, order_);
  return order_.owner(seen);
}

MprisSessions::Wake MprisSessions::waitForChange(std::span<pollfd> descriptors,
                                                 std::optional<Uptime> deadline) {
  std::vector<pollfd> polled(descriptors.begin(), descriptors.end());
  polled.emplace_back();
  while (true) {
    if (!signals_.isOpen() && now() >= nextConnection_) {
      // Before there was a connection, anything may have happened.
      if (signals_.open(now() + patience)) return Wake::change;
      nextConnection_ = now() + calmPace;
    }
    const MprisSignals::Drained drained = signals_.drain();
    const Uptime time = now();
    if (drained.hasNews) {
      lastChange_ = time;
      if (!firstChange_) firstChange_ = time;
    }
    std::optional<Uptime> due = nextQuestion_;
    if (firstChange_) due = std::min(lastChange_ + quietTime, *firstChange_ + longestBurst);
    if (due && time >= *due) {
      firstChange_.reset();
      nextQuestion_.reset();
      return Wake::change;
    }
    if (deadline && time >= *deadline) return Wake::deadline;

    std::optional<Uptime> end = due;
    if (deadline) end = std::min(end.value_or(*deadline), *deadline);
    if (!signals_.isOpen()) end = std::min(end.value_or(nextConnection_), nextConnection_);
    if (drained.hasMore) end = time;
    using std::chrono::milliseconds;
    const milliseconds left =
        end ? std::max(std::chrono::ceil<milliseconds>(*end - time), milliseconds(0))
            : milliseconds(-1);
    polled.back() = signals_.descriptor();
    ::poll(polled.data(), polled.size(), static_cast<int>(left.count()));
    bool hasHappened = false;
    for (std::size_t index = 0; index < descriptors.size(); ++index) {
      descriptors[index].revents = polled[index].revents;
      hasHappened = hasHappened || polled[index].revents != 0;
    }
    if (hasHappened) return Wake::descriptor;
  }
}

}  // namespace talmo
