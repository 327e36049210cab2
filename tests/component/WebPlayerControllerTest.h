#pragma once

#include <memory>
#include <string>
#include <vector>

#include "nowplaying/AdapterNowPlaying.h"
#include "players/ControllerFactory.h"
#include "players/TargetAppRegistry.h"
#include "tests/component/WebTest.h"
#include "web/WebTabDetection.h"

namespace talmo::test {

class WebPlayerControllerTest : public WebTest {
 protected:
  using Tab = SimulatedBrowsers::Tab;
  using Command = void (MusicAppController::*)();

  static constexpr Command toggle = &MusicAppController::playPause;
  static constexpr Command next = &MusicAppController::nextTrack;
  static constexpr Command previous = &MusicAppController::previousTrack;

  /// Starts a browser with these tabs and lets them be known.
  ProcessIdentifier open(const char* browser, const char* name, const std::vector<Tab>& tabs) {
    const ProcessIdentifier process = browsers().launch(browser, name);
    browsers().setTabs(browser, tabs);
    run([] { WebTabDetection::refreshMatches(); });
    return process;
  }

  /// Has the adapter have told of its session a moment ago.
  void learnOwner() {
    run([] { AdapterNowPlaying::getSync(); });
  }

  /// Runs commands of the controller of YouTube.
  void give(const std::vector<Command>& commands) { give("youtube-web", commands); }
  void give(const char* target, const std::vector<Command>& commands) {
    const auto controller = ControllerFactory::controller(*TargetAppRegistry::app(target));
    linesBefore_ = log().size();
    askedBefore_ = browsers().asked().size();
    run([&] {
      for (const Command command : commands) (*controller.*command)();
    });
  }

  /// What was logged and asked since the last `give`.
  std::vector<std::string> said() { return since(log(), linesBefore_); }
  std::vector<std::string> asked() { return since(browsers().asked(), askedBefore_); }

  std::vector<KeyboardEvent> keys(ProcessIdentifier process) {
    return machine().applications().keyboardEvents(process);
  }

 private:
  static std::vector<std::string> since(const std::vector<std::string>& all, std::size_t before) {
    return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end()};
  }

  std::size_t linesBefore_ = 0;
  std::size_t askedBefore_ = 0;
};

}  // namespace talmo::test
