#include "tests/backend/interface/view/AccessibleTree.h"

#include <array>
#include <atspi/atspi.h>
#include <functional>
#include <memory>
#include <stdexcept>
#include <utility>

namespace talmo::test {
namespace {

struct Unreference {
  void operator()(void* object) const { g_object_unref(object); }
};
using Accessible = std::unique_ptr<AtspiAccessible, Unreference>;

/// Takes a text that is to be freed; empty for none.
std::string taken(char* text) {
  if (text == nullptr) return {};
  std::string copy = text;
  g_free(text);
  return copy;
}

std::set<std::string> statesOf(AtspiAccessible* accessible) {
  constexpr std::array<std::pair<AtspiStateType, const char*>, 4> known{
      {{ATSPI_STATE_CHECKED, "checked"},
       {ATSPI_STATE_FOCUSABLE, "focusable"},
       {ATSPI_STATE_FOCUSED, "focused"},
       {ATSPI_STATE_SELECTED, "selected"}}};
  std::set<std::string> found;
  AtspiStateSet* const states = atspi_accessible_get_state_set(accessible);
  if (states == nullptr) return found;
  for (const auto& [state, name] : known) {
    if (atspi_state_set_contains(states, state) != 0) found.insert(name);
  }
  g_object_unref(states);
  return found;
}

AccessibleThing thing(AtspiAccessible* accessible, const std::vector<std::string>& path) {
  return {.role = taken(atspi_accessible_get_role_name(accessible, nullptr)),
          .name = taken(atspi_accessible_get_name(accessible, nullptr)),
          .description = taken(atspi_accessible_get_description(accessible, nullptr)),
          .states = statesOf(accessible),
          .path = path};
}

using Visitor = std::function<void(AtspiAccessible* accessible, const AccessibleThing& thing)>;

void walk(AtspiAccessible* accessible, std::vector<std::string> path, const Visitor& visit) {
  const AccessibleThing here = thing(accessible, path);
  visit(accessible, here);
  if (!here.name.empty()) path.push_back(here.name);
  const int count = atspi_accessible_get_child_count(accessible, nullptr);
  for (int index = 0; index < count; ++index) {
    const Accessible child(atspi_accessible_get_child_at_index(accessible, index, nullptr));
    if (child) walk(child.get(), path, visit);
  }
}

void walkApplication(int process, const Visitor& visit) {
  const Accessible desktop(atspi_get_desktop(0));
  if (!desktop) return;
  // What it remembers of before may no longer be so.
  atspi_accessible_clear_cache(desktop.get());
  const int count = atspi_accessible_get_child_count(desktop.get(), nullptr);
  for (int index = 0; index < count; ++index) {
    const Accessible application(
        atspi_accessible_get_child_at_index(desktop.get(), index, nullptr));
    if (!application) continue;
    if (static_cast<int>(atspi_accessible_get_process_id(application.get(), nullptr)) != process) {
      continue;
    }
    walk(application.get(), {}, visit);
  }
}

}  // namespace

AccessibleTree::AccessibleTree() {
  static const int status = atspi_init();
  if (status > 1) throw std::runtime_error("no accessibility bus");
}

std::vector<AccessibleThing> AccessibleTree::things(int process) {
  std::vector<AccessibleThing> found;
  walkApplication(process,
                  [&](AtspiAccessible*, const AccessibleThing& each) { found.push_back(each); });
  return found;
}

std::optional<PixelArea> AccessibleTree::place(int process, const std::string& role,
                                               const std::string& name) {
  std::optional<PixelArea> found;
  walkApplication(process, [&](AtspiAccessible* accessible, const AccessibleThing& each) {
    if (found || each.role != role || each.name != name) return;
    AtspiComponent* const component = atspi_accessible_get_component_iface(accessible);
    if (component == nullptr) return;
    AtspiRect* const rect =
        atspi_component_get_extents(component, ATSPI_COORD_TYPE_SCREEN, nullptr);
    g_object_unref(component);
    if (rect == nullptr) return;
    found = {.x = rect->x, .y = rect->y, .width = rect->width, .height = rect->height};
    g_free(rect);
  });
  return found;
}

bool AccessibleTree::press(int process, const std::string& role, const std::string& name) {
  bool isPressed = false;
  walkApplication(process, [&](AtspiAccessible* accessible, const AccessibleThing& each) {
    if (isPressed || each.role != role || each.name != name) return;
    AtspiAction* const action = atspi_accessible_get_action_iface(accessible);
    if (action == nullptr) return;
    isPressed = atspi_action_do_action(action, 0, nullptr) != 0;
    g_object_unref(action);
  });
  return isPressed;
}

}  // namespace talmo::test
