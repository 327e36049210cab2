#include "tests/backend/audio/SoundDesk.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <stdexcept>
#include <stdlib.h>
#include <utility>

#include "tests/support/WaitUntil.h"

namespace talmo::test {

using namespace std::chrono_literals;

SoundDesk::SoundDesk() {
  // Whatever the library keeps, it keeps here.
  ::setenv("PULSE_COOKIE", (folder_.path() / "cookie").c_str(), 1);
  ::setenv("PULSE_RUNTIME_PATH", folder_.path().c_str(), 1);
  startServer();
  ::setenv("PULSE_SERVER", server_->address().c_str(), 1);
}

SoundDesk::~SoundDesk() {
  for (const char* name : {"PULSE_COOKIE", "PULSE_RUNTIME_PATH", "PULSE_SERVER"}) ::unsetenv(name);
}

void SoundDesk::killServer() {
  server_->process().signal(SIGKILL);
  server_->process().waitForExit(10s);
}

void SoundDesk::startServer() {
  server_.reset();
  server_ = std::make_unique<PrivateSound>(
      folder_.path(), std::map<std::string, std::string>{{"HOME", folder_.path().string()}});
}

SoundDesk::Player SoundDesk::start(const std::string& name, int streams) {
  return wait(std::make_unique<TestProcess>(
      TestProcess::Start{.arguments = {program(name), std::to_string(streams)}}));
}

SoundDesk::Player SoundDesk::startHelper(const std::string& application,
                                         const std::string& helper) {
  return wait(std::make_unique<TestProcess>(
      TestProcess::Start{.arguments = {program(application), "--start", program(helper)}}));
}

void SoundDesk::command(const Player& player, int signal, const std::string& word) {
  const std::size_t before = player.process->output().size();
  ::kill(player.playing, signal);
  if (!waitUntil([&] { return player.process->output().substr(before) == word + "\n"; })) {
    throw std::runtime_error("the player did not say " + word + ": " + player.process->output());
  }
}

std::string SoundDesk::program(const std::string& name) const {
  const std::filesystem::path copy = folder_.path() / name;
  std::filesystem::copy_file(TALMO_TEST_STREAM, copy, std::filesystem::copy_options::skip_existing);
  return copy.string();
}

SoundDesk::Player SoundDesk::wait(std::unique_ptr<TestProcess> process) {
  const std::string word = "playing ";
  if (!waitUntil([&] {
        const std::string output = process->output();
        return output.starts_with(word) && output.ends_with("\n");
      })) {
    throw std::runtime_error("the player does not play: " + process->output());
  }
  const pid_t playing = std::stoi(process->output().substr(word.size()));
  return {.process = std::move(process), .playing = playing};
}

}  // namespace talmo::test
