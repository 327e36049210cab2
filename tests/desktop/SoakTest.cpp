// Ten thousand key presses while everything around Talmo comes and goes. Each press is accounted
// for: it arrived once, at the player that had to get it and in its turn, or it had to arrive
// nowhere.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <iostream>
#include <map>
#include <memory>
#include <ostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/linux/applications/ProcessTable.h"
#include "platform/linux/dispatch/LinuxWorkerPool.h"
#include "tests/desktop/PanelTest.h"
#include "tests/support/FakePlayerProcess.h"
#include "tests/support/MprisClient.h"
#include "tests/support/PlayerRecord.h"
#include "tests/support/ProcessUsage.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t allPresses = 10'000;
/// By then everything has been made that is made once.
constexpr std::size_t firstPresses = 1'000;
constexpr unsigned seed = 20'261'122;

/// In how many presses something comes or goes. More often at first: what is kept within bounds,
/// and the heap, which is cut up by what comes and goes, have then come to their size.
constexpr std::size_t firstEvery = 4;
constexpr std::size_t laterEvery = 25;

/// In kilobytes: 85 bytes for each of the other presses, or 10 kB for each further opening of the
/// panel. Less cannot be told from how the heap happens to be cut up, which makes 200 to 400 here.
constexpr double mostGrowth = 768;

constexpr auto patience = 20s;
constexpr auto interval = 1ms;

/// The two players that get the keys, and those that only come and go. The latter never play, so
/// the media session is never theirs. None is one that other tests on this machine run for real,
/// which Talmo would find among the processes.
const std::vector<std::string> players{"clementine", "strawberry"};
const std::vector<std::string> bystanders{"audacious", "mpv", "rhythmbox"};

class Soak : public PanelTest {
 public:
  struct Usage {
    double kilobytes = 0;
    std::size_t descriptors = 0;
    std::size_t threads = 0;
  };

 protected:
  Soak() : target_(players.front()) {
    for (const std::string& player : players) {
      install(player, FakePlayerProcess::command(player, record_.options()));
      startPlayer(player);
      clients_.emplace(player, std::make_unique<MprisClient>(desktop_.busAddress(), player));
    }
    startWithTray(target_);
    icon_ = icon().value();
    // As on most desktops.
    keys_.setRepeat(500ms, 30ms);
  }

  /// Presses about as many keys as `count`, and has something come or go in one of `every` presses.
  void soak(std::size_t count, std::size_t every);

  /// Brings everything to rest and measures.
  Usage usageAtRest();

  std::size_t pressed() const { return pressed_; }
  std::string summary() const;

 private:
  /// A key and what it has a player do.
  struct Key {
    std::uint8_t keycode;
    const char* method;
  };

  /// A command that has to arrive.
  struct Due {
    /// Empty for either of the two.
    std::string player;
    const char* method;
  };

  /// Below `limit`, the same ones in each run.
  std::size_t random(std::size_t limit) { return random_() % limit; }
  bool oneIn(std::size_t count) { return random(count) == 0; }

  static bool isPlayer(const std::string& id) {
    return std::ranges::find(players, id) != players.end();
  }
  bool isAutomatic() const { return target_ == "auto"; }
  bool isOnBus(const std::string& player) { return !clients_.at(player)->playbackStatus().empty(); }

  void startPlayer(const std::string& player);
  void press(const Key& key);
  void pressMany(std::size_t every);
  bool settle();

  void disturb();
  void startBystander();
  void endBystander();
  void togglePanel();
  void showPanel(bool isShown);
  void killHelper();

  void doOneByOne();
  void holdKey();
  void typeLetter();
  void endTarget();
  void chooseAnother();

  std::mt19937 random_{seed};
  PlayerRecord record_{desktop_.folder() / "commands"};
  const Key playKey_{keys_.keycode("XF86AudioPlay"), "PlayPause"};
  const std::vector<Key> skipKeys_{{keys_.keycode("XF86AudioNext"), "Next"},
                                   {keys_.keycode("XF86AudioPrev"), "Previous"},
                                   {keys_.keycode("XF86AudioForward"), "Next"},
                                   {keys_.keycode("XF86AudioRewind"), "Previous"}};
  std::map<std::string, std::unique_ptr<TestProcess>> started_;
  std::map<std::string, std::unique_ptr<MprisClient>> clients_;
  std::string target_;
  /// Where it is before the mouse has been on it, which brings up a window of its own.
  PixelArea icon_{};
  bool isPanelShown_ = false;
  std::size_t pressed_ = 0;
  std::vector<Due> due_;
  std::size_t compared_ = 0;
  /// How often what happened.
  std::map<std::string, std::size_t> counts_;
};

void Soak::startPlayer(const std::string& player) {
  started_[player] = desktop_.start(FakePlayerProcess::command(player, record_.options()));
  ASSERT_TRUE(
      waitUntil([&] { return record_.lastStarted(player) == started_[player]->pid(); }, patience));
}

void Soak::press(const Key& key) {
  keys_.tap(key.keycode);
  ++pressed_;
  due_.push_back({isAutomatic() ? "" : target_, key.method});
}

void Soak::pressMany(std::size_t every) {
  for (std::size_t left = 1 + random(12); left > 0; --left) {
    if (oneIn(every)) disturb();
    press(oneIn(5) ? playKey_ : skipKeys_[random(skipKeys_.size())]);
  }
}

/// Waits until all that is due has arrived, and compares.
bool Soak::settle() {
  waitUntil([this] { return record_.commands().size() >= due_.size(); }, patience, interval);
  const auto& arrived = record_.commands();
  EXPECT_EQ(arrived.size(), due_.size());
  for (; compared_ < std::min(arrived.size(), due_.size()); ++compared_) {
    const Due& due = due_[compared_];
    const PlayerRecord::Command& command = arrived[compared_];
    EXPECT_EQ(command.method, due.method) << "command " << compared_;
    EXPECT_TRUE(due.player.empty() ? isPlayer(command.player) : command.player == due.player)
        << "command " << compared_ << " is for " << due.player << " and came to " << command.player;
  }
  return !HasFailure();
}

void Soak::soak(std::size_t count, std::size_t every) {
  const std::size_t end = pressed_ + count;
  while (pressed_ < end) {
    pressMany(every);
    ASSERT_TRUE(settle()) << "after press " << pressed_ << " of the seed " << seed << ": "
                          << summary() << '\n'
                          << talmo_->log();
    doOneByOne();
    if (HasFatalFailure()) return;
  }
}

/// What happens while keys are on their way; nothing here waits for its effect.
void Soak::disturb() {
  switch (random(4)) {
    case 0:
      return startBystander();
    case 1:
      return endBystander();
    case 2:
      return togglePanel();
    default:
      return killHelper();
  }
}

void Soak::startBystander() {
  const std::string& player = bystanders[random(bystanders.size())];
  std::vector<std::string> options = record_.options();
  options.insert(options.end(), {"--status", "Stopped"});
  // One of the same name that runs still is killed first.
  started_[player] = nullptr;
  started_[player] = desktop_.start(FakePlayerProcess::command(player, options));
  ++counts_["players started"];
}

void Soak::endBystander() {
  const auto found = started_.find(bystanders[random(bystanders.size())]);
  if (found == started_.end()) return;
  const bool isKilled = oneIn(2);
  found->second->signal(isKilled ? SIGKILL : SIGTERM);
  started_.erase(found);
  ++counts_[isKilled ? "players killed" : "players quit"];
}

void Soak::togglePanel() {
  // The click before this one has had its effect.
  ASSERT_TRUE(isPanelShown_ ? waitForPanel() : waitForNoPanel()) << talmo_->log();
  mouse_.click(icon_.middleX(), icon_.middleY());
  isPanelShown_ = !isPanelShown_;
  ++counts_["clicks on the icon"];
}

void Soak::showPanel(bool isShown) {
  if (isPanelShown_ != isShown) togglePanel();
  ASSERT_TRUE(isPanelShown_ ? waitForPanel() : waitForNoPanel()) << talmo_->log();
}

void Soak::killHelper() {
  for (const pid_t pid : desktop_.processes("perl")) {
    if (ProcessTable::parent(pid) != talmo_->process().pid()) continue;
    ::kill(pid, SIGKILL);
    ++counts_["helpers killed"];
  }
}

/// What happens between keys, and is waited for.
void Soak::doOneByOne() {
  if (oneIn(150)) holdKey();
  if (oneIn(30)) typeLetter();
  if (oneIn(50)) endTarget();
  if (oneIn(80)) chooseAnother();
}

void Soak::holdKey() {
  const Key& key = skipKeys_.front();
  keys_.press(key.keycode);
  ++pressed_;
  due_.push_back({isAutomatic() ? "" : target_, key.method});
  EXPECT_FALSE(waitUntil([this] { return record_.commands().size() > due_.size(); }, 700ms, 20ms));
  keys_.release(key.keycode);
  settle();
  ++counts_["keys held"];
}

void Soak::typeLetter() {
  showPanel(false);
  window_.focus();
  // No media key among it.
  EXPECT_EQ(windowAfterTyping(), "+z -z");
  ++counts_["letters typed"];
}

/// The player that gets the keys goes, keys are pressed for nobody, and play/pause launches it.
void Soak::endTarget() {
  if (isAutomatic()) return;
  const pid_t before = record_.lastStarted(target_);
  const std::size_t settled = due_.size();
  const bool isUnderKeys = oneIn(2);
  std::size_t presses = isUnderKeys ? 2 + random(8) : 0;
  for (std::size_t count = presses; count > 0; --count) press(skipKeys_[random(4)]);
  ::kill(before, oneIn(2) ? SIGKILL : SIGTERM);
  ++counts_[isUnderKeys ? "targets ended under keys" : "targets ended"];
  for (std::size_t count = random(4); count > 0; --count, ++presses) press(skipKeys_[random(4)]);
  ASSERT_TRUE(waitUntil([this] { return !isOnBus(target_); }, patience, interval));
  started_.erase(target_);
  for (std::size_t count = random(4); count > 0; --count, ++presses) press(skipKeys_[random(4)]);

  // Its command is none of the new player's, and comes after all before.
  keys_.tap(playKey_.keycode);
  ++pressed_;
  ++counts_["launches"];
  ASSERT_TRUE(waitUntil([&] { return record_.lastStarted(target_) != before; }, patience))
      << talmo_->log();
  // What came before the end of the player came in its turn; the rest has gone nowhere.
  const std::size_t lost = due_.size() - record_.commands().size();
  ASSERT_LE(lost, presses);
  due_.resize(due_.size() - lost);
  counts_["for nobody"] += lost;
  settle();
  for (std::size_t index = settled; index < compared_; ++index) {
    EXPECT_EQ(record_.commands()[index].pid, before);
  }
}

/// Pins another player by the keyboard, or none.
void Soak::chooseAnother() {
  showPanel(true);
  const std::uint32_t window = panel()->id;
  ASSERT_TRUE(waitUntil([&] { return windows_.active() == window; }, patience));
  const std::string before = target_;
  const std::string line = "Routing media keys";
  std::size_t choices = talmo_->lines(line).size();
  do {
    for (std::size_t count = 1 + random(2); count > 0; --count) keys_.tap("Down");
    keys_.tap("Return");
    ASSERT_TRUE(talmo_->waitForLines(line, ++choices)) << talmo_->log();
    target_ = storedSelection();
    // There are more rows where real players are installed.
  } while (target_ == before || (!isAutomatic() && !isPlayer(target_)));
  ++counts_["choices of " + target_];
}

Soak::Usage Soak::usageAtRest() {
  showPanel(false);
  for (const std::string& player : bystanders) started_.erase(player);
  const ProcessUsage usage(talmo_->process().pid());
  const auto counts = [&] { return std::pair(usage.descriptors(), usage.threads().size()); };
  // Threads that have nothing to do end, and with them what they keep open.
  constexpr auto stillness = LinuxWorkerPool::idleLimit + 1s;
  auto last = counts();
  auto since = std::chrono::steady_clock::now();
  const auto isStill = [&] {
    const auto now = std::chrono::steady_clock::now();
    const auto current = counts();
    if (current != last) since = now;
    last = current;
    return now - since > stillness;
  };
  EXPECT_TRUE(waitUntil(isStill, 60s, 100ms)) << "it does not come to rest";
  return {.kilobytes = usage.ownMemory(), .descriptors = last.first, .threads = last.second};
}

std::string Soak::summary() const {
  std::string text = std::to_string(pressed_) + " keys pressed, " + std::to_string(due_.size()) +
                     " commands arrived";
  for (const auto& [what, count] : counts_) text += ", " + std::to_string(count) + " " + what;
  return text;
}

std::ostream& operator<<(std::ostream& stream, const Soak::Usage& usage) {
  return stream << usage.kilobytes << " kB, " << usage.descriptors << " descriptors, "
                << usage.threads << " threads";
}

TEST_F(Soak, LosesAndDoublesNoKeyAndStaysLevelWhateverComesAndGoes) {
  soak(firstPresses, firstEvery);
  ASSERT_FALSE(HasFatalFailure());
  const Usage first = usageAtRest();
  soak(allPresses - firstPresses, laterEvery);
  ASSERT_FALSE(HasFatalFailure());
  const Usage last = usageAtRest();
  std::cout << summary() << "\nafter the first " << firstPresses << ": " << first
            << "; at the end: " << last << "\n";

  EXPECT_EQ(talmo_->lines("media key:").size(), pressed());
  EXPECT_LE(last.kilobytes - first.kilobytes, mostGrowth);
  EXPECT_EQ(last.descriptors, first.descriptors);
  EXPECT_EQ(last.threads, first.threads);
}

}  // namespace
}  // namespace talmo::test
