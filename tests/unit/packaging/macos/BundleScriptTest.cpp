#include "tests/unit/packaging/macos/BundleScriptTest.h"

#include <chrono>
#include <fstream>

#include "tests/support/TestProcess.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr const char* endOfCall = "end of call";

}  // namespace

BundleScriptTest::BundleScriptTest() {
  makeFile(app() / "Contents" / "MacOS" / "Talmo");
  const std::filesystem::path adapter = frameworks() / "MediaRemoteAdapter.framework";
  makeFile(adapter / "Versions" / "A" / "MediaRemoteAdapter");
  std::filesystem::create_symlink("A", adapter / "Versions" / "Current");
  std::filesystem::create_symlink("Versions/Current/MediaRemoteAdapter",
                                  adapter / "MediaRemoteAdapter");
}

void BundleScriptTest::makeFile(const std::filesystem::path& path) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path).close();
}

std::string BundleScriptTest::program(const std::string& name, const std::string& commands) const {
  const std::filesystem::path path = folder() / name;
  std::ofstream(path) << "#!/bin/sh\n{ printf '%s\\n' " << name << " \"$@\" '" << endOfCall
                      << "'; } >>'" << record().string() << "'\n"
                      << commands << "\n";
  std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  return path.string();
}

int BundleScriptTest::run(const std::string& script, const Variables& variables) {
  std::vector<std::string> arguments{TALMO_CMAKE};
  for (const std::string& variable : variables) {
    arguments.emplace_back("-D");
    arguments.push_back(variable);
  }
  arguments.emplace_back("-P");
  arguments.push_back(std::string(TALMO_PACKAGING) + "/" + script);
  TestProcess process({.arguments = arguments});
  const int status = process.waitForExit(30s).value_or(-1);
  output_ = process.output();
  return status;
}

std::vector<std::vector<std::string>> BundleScriptTest::calls() const {
  std::vector<std::vector<std::string>> calls;
  std::vector<std::string> call;
  std::ifstream file(record());
  for (std::string line; std::getline(file, line);) {
    if (line == endOfCall) {
      calls.push_back(std::move(call));
      call.clear();
    } else {
      call.push_back(line);
    }
  }
  return calls;
}

}  // namespace talmo::test
