#include "tests/component/SimulatedBrowsers.h"

#include <map>
#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>

#include "support/Mutex.h"
#include "support/MutexLock.h"
#include "support/ThreadSafety.h"

namespace talmo::test {
namespace {

using Kind = SimulatedBrowsers::Kind;

constexpr const char* perl = "/usr/bin/perl";

bool isOsascript(const ChildProcessParameters& parameters) {
  return parameters.executable == "/usr/bin/osascript" && parameters.arguments.size() == 2 &&
         parameters.arguments[0] == "-e" && parameters.standardOutput == ChildOutput::pipe &&
         parameters.standardError == ChildOutput::pipe;
}

std::string browserOf(std::string_view script) {
  constexpr std::string_view opening = "tell application id \"";
  script.remove_prefix(script.find(opening) + opening.size());
  return std::string(script.substr(0, script.find('"')));
}

Kind kindOf(std::string_view script) {
  if (script.starts_with("set sep to ")) return Kind::scan;
  return script.find("\n  activate\n") == std::string_view::npos ? Kind::javaScript : Kind::focus;
}

std::string name(Kind kind) {
  if (kind == Kind::scan) return "scan ";
  return kind == Kind::focus ? "focus " : "js ";
}

/// What follows the adapter's script and framework: "get", "send 2".
std::string adapterCommand(const ChildProcessParameters& parameters) {
  std::string command = parameters.arguments.at(2);
  if (command == "send") command += " " + parameters.arguments.at(3);
  return command;
}

}  // namespace

struct SimulatedBrowsers::Programs {
  Mutex mutex;
  std::map<std::pair<std::string, Kind>, Script> scripts TALMO_GUARDED_BY(mutex);
  Script get TALMO_GUARDED_BY(mutex);
  Script stream TALMO_GUARDED_BY(mutex);

  Script follow(const ChildProcessParameters& parameters) {
    const MutexLock lock(mutex);
    if (parameters.executable == perl) {
      const std::string command = adapterCommand(parameters);
      if (command == "stream") return stream;
      return command == "get" ? get : Script();
    }
    if (!isOsascript(parameters)) return Script::launchFailure("no such program");
    const Kind kind = kindOf(parameters.arguments[1]);
    const auto found = scripts.find({browserOf(parameters.arguments[1]), kind});
    if (found != scripts.end()) return found->second;
    return kind == Kind::scan ? Script().write("\n") : Script().write("ok\n");
  }
};

SimulatedBrowsers::SimulatedBrowsers(SimulatedPlatform& machine)
    : machine_(machine), programs_(std::make_shared<Programs>()) {
  setNoSession();
  machine.childProcesses().setPrograms(
      [programs = programs_](const ChildProcessParameters& parameters) {
        return programs->follow(parameters);
      });
}

ProcessIdentifier SimulatedBrowsers::launch(const std::string& bundleID, const std::string& name) {
  machine_.applications().install({bundleID, name});
  return machine_.applications().launch(bundleID);
}

void SimulatedBrowsers::setTabs(const std::string& bundleID, const std::vector<Tab>& tabs) {
  std::string lines;
  for (const Tab& tab : tabs) lines += tab.url + "\t" + tab.title + "\n";
  // The program ends what a script returns with a line end of its own.
  setScript(bundleID, Kind::scan, Script().write(lines + "\n"));
}

void SimulatedBrowsers::setScript(const std::string& bundleID, Kind kind, Script script) {
  const MutexLock lock(programs_->mutex);
  programs_->scripts.insert_or_assign({bundleID, kind}, std::move(script));
}

void SimulatedBrowsers::setSession(const std::string& bundleID, const std::string& title,
                                   const std::string& parentBundleID) {
  nlohmann::json answer{{"bundleIdentifier", bundleID}, {"title", title}, {"playing", true}};
  if (!parentBundleID.empty()) answer["parentApplicationBundleIdentifier"] = parentBundleID;
  setGet(Script().write(answer.dump() + "\n"));
}

void SimulatedBrowsers::setNoSession() {
  setGet(Script().write("{}\n"));
}

void SimulatedBrowsers::setGet(Script script) {
  const MutexLock lock(programs_->mutex);
  programs_->get = std::move(script);
}

void SimulatedBrowsers::setStream(Script script) {
  const MutexLock lock(programs_->mutex);
  programs_->stream = std::move(script);
}

std::vector<std::string> SimulatedBrowsers::asked() const {
  std::vector<std::string> asked;
  for (const auto& launch : machine_.childProcesses().launches()) {
    if (isOsascript(launch.parameters)) {
      const std::string& script = launch.parameters.arguments[1];
      asked.push_back(name(kindOf(script)) + browserOf(script));
    } else if (launch.parameters.executable == perl) {
      asked.push_back(adapterCommand(launch.parameters));
    }
  }
  return asked;
}

std::vector<std::string> SimulatedBrowsers::scripts(Kind kind) const {
  std::vector<std::string> scripts;
  for (const auto& launch : machine_.childProcesses().launches()) {
    if (!isOsascript(launch.parameters)) continue;
    if (kindOf(launch.parameters.arguments[1]) == kind) {
      scripts.push_back(launch.parameters.arguments[1]);
    }
  }
  return scripts;
}

}  // namespace talmo::test
