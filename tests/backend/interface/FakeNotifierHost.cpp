#include "tests/backend/interface/FakeNotifierHost.h"

#include <chrono>
#include <stdexcept>

#include <systemd/sd-bus.h>

#include "support/MutexLock.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

// freedesktop.org's status notifier items, with the names that are in use.
constexpr const char* watcher = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";
constexpr const char* itemInterface = "org.kde.StatusNotifierItem";
constexpr const char* itemPath = "/StatusNotifierItem";

}  // namespace

/// What sd-bus calls, on the host's thread.
struct FakeNotifierHost::Callbacks {
  static int registerItem(sd_bus_message* call, void* data, sd_bus_error*) {
    FakeNotifierHost& host = *static_cast<FakeNotifierHost*>(data);
    const char* name = nullptr;
    sd_bus_message_read(call, "s", &name);
    {
      const MutexLock lock(host.mutex_);
      host.item_ = name;
    }
    return sd_bus_reply_method_return(call, nullptr);
  }

  static int yes(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void*,
                 sd_bus_error*) {
    return sd_bus_message_append(reply, "b", 1);
  }
};

FakeNotifierHost::FakeNotifierHost(const std::string& busAddress)
    : address_(busAddress), bus_(connect()) {
  static const sd_bus_vtable table[] = {
      SD_BUS_VTABLE_START(0),
      SD_BUS_METHOD("RegisterStatusNotifierItem", "s", "", Callbacks::registerItem,
                    SD_BUS_VTABLE_UNPRIVILEGED),
      SD_BUS_PROPERTY("IsStatusNotifierHostRegistered", "b", Callbacks::yes, 0,
                      SD_BUS_VTABLE_PROPERTY_CONST),
      SD_BUS_VTABLE_END};
  if (sd_bus_add_object_vtable(bus_.get(), nullptr, watcherPath, watcher, table, this) < 0 ||
      sd_bus_request_name(bus_.get(), watcher, 0) < 0) {
    throw std::runtime_error("cannot be a desktop's bar");
  }
  thread_ = std::thread([this] { serve(); });
}

FakeNotifierHost::~FakeNotifierHost() {
  isStopped_ = true;
  thread_.join();
}

std::optional<std::string> FakeNotifierHost::item() const {
  const MutexLock lock(mutex_);
  return item_;
}

void FakeNotifierHost::click(const std::string& method) const {
  const BusConnection bus = connect();
  sd_bus_call_method_async(bus.get(), nullptr, item().value().c_str(), itemPath, itemInterface,
                           method.c_str(), nullptr, nullptr, "ii", 0, 0);
  sd_bus_flush(bus.get());
}

BusConnection FakeNotifierHost::connect() const {
  sd_bus* raw = nullptr;
  if (sd_bus_new(&raw) < 0) throw std::runtime_error("no memory for a bus");
  BusConnection bus(raw);
  if (sd_bus_set_address(raw, address_.c_str()) < 0 || sd_bus_set_bus_client(raw, 1) < 0 ||
      sd_bus_start(raw) < 0) {
    throw std::runtime_error("no bus at " + address_);
  }
  return bus;
}

void FakeNotifierHost::serve() {
  while (!isStopped_) {
    while (sd_bus_process(bus_.get(), nullptr) > 0) {
    }
    // As long as the end may take.
    waitForBusConnection(bus_.get(), std::chrono::steady_clock::now() + 20ms);
  }
}

}  // namespace talmo::test
