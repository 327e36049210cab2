// Shows the panel in the state that is named, on the display and session bus of the environment,
// and writes down which rows are pressed.

#include <cstdio>
#include <cstdlib>
#include <QApplication>
#include <string>

#include "platform/linux/interface/view/Appearance.h"
#include "platform/linux/interface/view/ContentView.h"
#include "platform/linux/interface/view/Vectors.h"
#include "platform/linux/LinuxBundle.h"
#include "tests/backend/interface/view/PanelStates.h"

int main(int count, char** arguments) {
  const QApplication application(count, arguments);
  if (count != 2) return EXIT_FAILURE;
  const talmo::LinuxBundle bundle(TALMO_BUNDLE_FOLDER);
  const talmo::Vectors vectors(bundle);
  talmo::Appearance appearance;
  talmo::ContentView content(vectors, appearance);
  talmo::PanelActions actions;
  actions.pressRow = [](const std::string& id) {
    std::printf("pressed %s\n", id.c_str());
    std::fflush(stdout);
  };
  content.setContent(talmo::test::panelStates(actions).at(arguments[1]));
  content.resize(content.sizeHint());
  content.show();
  return QApplication::exec();
}
