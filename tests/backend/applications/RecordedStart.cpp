#include "tests/backend/applications/RecordedStart.h"

#include <csignal>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include <nlohmann/json.hpp>

#include "tests/support/WaitUntil.h"

namespace talmo::test {

std::string RecordedStart::program() {
  return TALMO_RECORDED_START;
}

RecordedStart::RecordedStart(const std::filesystem::path& file) {
  if (!waitUntil([&] { return std::filesystem::exists(file); })) {
    throw std::runtime_error("no program was started that writes " + file.string());
  }
  std::ifstream stream(file);
  const nlohmann::json record = nlohmann::json::parse(stream);
  record.at("arguments").get_to(arguments);
  record.at("process").get_to(process);
  record.at("parent").get_to(parent);
  record.at("session").get_to(session);
  record.at("descriptors").get_to(descriptors);
  record.at("blockedSignals").get_to(blockedSignals);
}

RecordedStart::~RecordedStart() {
  if (process > 0) ::kill(process, SIGKILL);
}

void RecordedStart::end() {
  const std::string name = "/proc/" + std::to_string(process);
  ::kill(process, SIGTERM);
  const bool hasEnded = waitUntil([&] {
    // Either nothing is left of it, or it waits for whoever has inherited it.
    std::ifstream status(name + "/stat");
    const std::string text{std::istreambuf_iterator<char>(status),
                           std::istreambuf_iterator<char>()};
    const std::size_t nameEnd = text.rfind(')');
    return nameEnd == std::string::npos || text.compare(nameEnd, 3, ") Z") == 0;
  });
  if (!hasEnded) throw std::runtime_error("the program did not end");
  process = 0;
}

}  // namespace talmo::test
