#include "platform/macos/applications/LaunchedInstance.h"

#include <algorithm>
#include <utility>

namespace talmo {
namespace {

bool isOlder(const LaunchedInstance& a, const LaunchedInstance& b) {
  // An absent date is less than every other.
  if (a.launched != b.launched) return a.launched < b.launched;
  return a.application.processIdentifier < b.application.processIdentifier;
}

}  // namespace

std::vector<RunningApplication> oldestFirst(std::vector<LaunchedInstance> instances) {
  std::ranges::sort(instances, isOlder);
  std::vector<RunningApplication> applications;
  applications.reserve(instances.size());
  for (LaunchedInstance& instance : instances) {
    applications.push_back(std::move(instance.application));
  }
  return applications;
}

}  // namespace talmo
