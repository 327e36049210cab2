#include "tests/backend/applications/ActivatedApplication.h"

#include <cstdint>
#include <system_error>

#include <systemd/sd-bus.h>

#include "support/MutexLock.h"

namespace talmo::test {
namespace {

constexpr std::uint64_t waitMicroseconds = 20'000;

void check(int result, const char* what) {
  if (result < 0) throw std::system_error(-result, std::generic_category(), what);
}

}  // namespace

struct ActivatedApplication::Callbacks {
  static int activate(sd_bus_message* call, void* data, sd_bus_error*) {
    ActivatedApplication& application = *static_cast<ActivatedApplication*>(data);
    const MutexLock lock(application.mutex_);
    ++application.activations_;
    return sd_bus_reply_method_return(call, nullptr);
  }

  static int open(sd_bus_message* call, void* data, sd_bus_error*) {
    ActivatedApplication& application = *static_cast<ActivatedApplication*>(data);
    const MutexLock lock(application.mutex_);
    sd_bus_message_enter_container(call, 'a', "s");
    const char* url = nullptr;
    while (sd_bus_message_read(call, "s", &url) > 0) application.opened_.emplace_back(url);
    sd_bus_message_exit_container(call);
    return sd_bus_reply_method_return(call, nullptr);
  }
};

ActivatedApplication::ActivatedApplication(const std::string& name, const std::string& path) {
  static const sd_bus_vtable table[] = {
      SD_BUS_VTABLE_START(0),
      SD_BUS_METHOD("Activate", "a{sv}", "", Callbacks::activate, SD_BUS_VTABLE_UNPRIVILEGED),
      SD_BUS_METHOD("Open", "asa{sv}", "", Callbacks::open, SD_BUS_VTABLE_UNPRIVILEGED),
      SD_BUS_VTABLE_END};
  sd_bus* bus = nullptr;
  check(sd_bus_open_user(&bus), "no session bus");
  bus_.reset(bus);
  check(sd_bus_add_object_vtable(bus, nullptr, path.c_str(), "org.freedesktop.Application", table,
                                 this),
        "the application's object");
  check(sd_bus_request_name(bus, name.c_str(), 0), "the application's bus name");
  thread_ = std::thread([this] {
    while (!isStopping_) {
      if (sd_bus_process(bus_.get(), nullptr) == 0) sd_bus_wait(bus_.get(), waitMicroseconds);
    }
  });
}

ActivatedApplication::~ActivatedApplication() {
  isStopping_ = true;
  thread_.join();
}

int ActivatedApplication::activations() const {
  const MutexLock lock(mutex_);
  return activations_;
}

std::vector<std::string> ActivatedApplication::opened() const {
  const MutexLock lock(mutex_);
  return opened_;
}

void ActivatedApplication::CloseBus::operator()(sd_bus* bus) const {
  sd_bus_close_unref(bus);
}

}  // namespace talmo::test
