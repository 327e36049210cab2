#include <memory>
#include <QApplication>
#include <QTest>
#include <stdexcept>

#include "platform/linux/interface/LinuxOwnWindows.h"
#include "platform/linux/interface/TitledWindow.h"
#include "platform/linux/interface/view/ButtonPart.h"
#include "platform/linux/LinuxBundle.h"
#include "tests/contract/WindowsContract.h"

namespace talmo::test {
namespace {

class LinuxWindowsWorld : public WindowsWorld {
 public:
  Windows& windows() override { return windows_; }

  void personCloses() override { seen().close(); }

  void press(const std::string& button) override {
    QApplication::processEvents();
    for (QAbstractButton* candidate : seen().findChildren<QAbstractButton*>()) {
      if (candidate->accessibleName().toStdString() != button || !candidate->isVisible()) continue;
      QTest::mouseClick(candidate, Qt::LeftButton);
      QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      return;
    }
    throw std::runtime_error("no button " + button);
  }

 private:
  static TitledWindow& seen() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      auto* const window = dynamic_cast<TitledWindow*>(widget);
      if (window != nullptr && window->isVisible()) return *window;
    }
    throw std::runtime_error("no window is seen");
  }

  const LinuxBundle bundle_{TALMO_BUNDLE_FOLDER};
  const Vectors vectors_{bundle_};
  LinuxOwnWindows windows_{vectors_};
};

INSTANTIATE_TEST_SUITE_P(Linux, WindowsContract,
                         testing::Values([] { return std::make_unique<LinuxWindowsWorld>(); }));

}  // namespace
}  // namespace talmo::test
