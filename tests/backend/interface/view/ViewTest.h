#pragma once

#include <algorithm>
#include <functional>
#include <QApplication>
#include <QPoint>
#include <QWidget>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/linux/interface/view/Appearance.h"
#include "platform/linux/interface/view/ButtonPart.h"
#include "platform/linux/interface/view/ContentView.h"
#include "platform/linux/interface/view/Vectors.h"
#include "platform/linux/LinuxBundle.h"
#include "platform/View.h"

namespace talmo::test {

// Views to show.

inline View text(const std::string& identity, const std::string& content,
                 ViewRole role = ViewRole::label) {
  return {.identity = identity, .kind = ViewKind::text, .role = role, .text = content};
}

inline View row(const std::string& name, std::function<void()> action = {}) {
  return {.identity = name,
          .kind = ViewKind::button,
          .role = ViewRole::row,
          .children = {text("name", name)},
          .action = std::move(action)};
}

inline View equalizer(bool isOn) {
  return {.identity = "equalizer",
          .kind = ViewKind::equalizer,
          .role = ViewRole::equalizer,
          .isOn = isOn};
}

inline View stack(ViewRole role, std::vector<View> children) {
  return {.identity = "stack",
          .kind = ViewKind::vertical,
          .role = role,
          .children = std::move(children)};
}

inline View panel(std::vector<View> children) {
  return stack(ViewRole::glass, std::move(children));
}

inline View list(std::vector<View> rows) {
  return stack(ViewRole::section, std::move(rows));
}

/// A content on a screen that nobody sees.
class ViewTest : public testing::Test {
 protected:
  ViewTest() { content_.setAttribute(Qt::WA_TranslucentBackground); }

  /// In a window of the size that it wants.
  void show(const View& view) {
    content_.setContent(view);
    content_.resize(content_.sizeHint());
    content_.show();
    settle();
  }

  /// Lets what was posted be done.
  static void settle() {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  /// The widgets of a type, from top to bottom.
  template <class Type>
  std::vector<Type*> parts() {
    std::vector<Type*> found;
    for (QWidget* widget : content_.findChildren<QWidget*>()) {
      if (auto* part = dynamic_cast<Type*>(widget)) found.push_back(part);
    }
    std::ranges::sort(found, {}, [this](QWidget* widget) {
      const QPoint place = placeOf(*widget);
      return std::pair(place.y(), place.x());
    });
    return found;
  }

  template <class Type>
  Type& only() {
    const std::vector<Type*> all = parts<Type>();
    EXPECT_EQ(all.size(), 1U);
    return *all.at(0);
  }

  ButtonPart& button(const std::string& name) {
    for (ButtonPart* part : parts<ButtonPart>()) {
      if (part->accessibleName().toStdString() == name) return *part;
    }
    throw std::runtime_error("no button " + name);
  }

  QPoint placeOf(QWidget& widget) { return widget.mapTo(&content_, QPoint()); }

  LinuxBundle bundle_{TALMO_BUNDLE_FOLDER};
  Vectors vectors_{bundle_};
  Appearance appearance_;
  ContentView content_{vectors_, appearance_};
};

}  // namespace talmo::test
