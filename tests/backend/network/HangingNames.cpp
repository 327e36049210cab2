#include "tests/backend/network/HangingNames.h"

#include <condition_variable>
#include <dlfcn.h>
#include <netdb.h>
#include <string_view>

#include "support/Mutex.h"
#include "support/MutexLock.h"

namespace talmo::test {
namespace {

struct LookUps {
  Mutex mutex;
  std::condition_variable_any changed;
  bool areHanging TALMO_GUARDED_BY(mutex) = false;
  int hanging TALMO_GUARDED_BY(mutex) = 0;
};

LookUps& lookUps() {
  static LookUps all;
  return all;
}

/// Returns when no name hangs any more.
void hang() {
  LookUps& all = lookUps();
  MutexLock lock(all.mutex);
  if (!all.areHanging) return;
  ++all.hanging;
  while (all.areHanging) all.changed.wait(lock);
  --all.hanging;
  all.changed.notify_all();
}

}  // namespace

HangingNames::HangingNames() {
  LookUps& all = lookUps();
  const MutexLock lock(all.mutex);
  all.areHanging = true;
}

HangingNames::~HangingNames() {
  LookUps& all = lookUps();
  MutexLock lock(all.mutex);
  all.areHanging = false;
  all.changed.notify_all();
  while (all.hanging > 0) all.changed.wait(lock);
}

int HangingNames::count() {
  LookUps& all = lookUps();
  const MutexLock lock(all.mutex);
  return all.hanging;
}

}  // namespace talmo::test

/// Stands before the C library's, for the libraries too.
extern "C" int getaddrinfo(const char* node, const char* service, const addrinfo* hints,
                           addrinfo** result) {
  if (node != nullptr && std::string_view(node).ends_with(".hanging.test")) {
    talmo::test::hang();
    return EAI_AGAIN;
  }
  using Function = decltype(&getaddrinfo);
  static const auto usual = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, "getaddrinfo"));
  return usual(node, service, hints, result);
}
