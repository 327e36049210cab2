#include "platform/linux/interface/InstanceName.h"

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <optional>
#include <QSocketNotifier>
#include <QTimer>
#include <string>
#include <string_view>
#include <utility>

#include <systemd/sd-bus.h>

namespace talmo {
namespace {

using namespace std::chrono_literals;

constexpr const char* name = "nl.brelm.Talmo";
// freedesktop.org's desktop entries, "D-Bus Activation".
constexpr const char* path = "/nl/brelm/Talmo";
constexpr const char* applicationInterface = "org.freedesktop.Application";

constexpr Duration busPatience = 2s;
// One that is on its way out lets a last command end, and its helpers.
constexpr Duration successorPatience = 10s;
constexpr std::uint64_t answerPatience = 5'000'000;  // microseconds

/// Whether the process that has the name has shown itself; otherwise the error's name.
std::optional<std::string> showAnother(sd_bus* bus) {
  sd_bus_message* raw = nullptr;
  if (sd_bus_message_new_method_call(bus, &raw, name, path, applicationInterface, "Activate") < 0) {
    return "no memory";
  }
  sd_bus_message_set_auto_start(raw, 0);
  sd_bus_message_append(raw, "a{sv}", 0);
  sd_bus_error error{};
  const int result = sd_bus_call(bus, raw, answerPatience, &error, nullptr);
  sd_bus_message_unref(raw);
  std::optional<std::string> failure;
  if (result < 0) failure = error.name == nullptr ? "" : error.name;
  sd_bus_error_free(&error);
  return failure;
}

/// Whether the error says that the process that had the name has gone.
bool hasGone(std::string_view error) {
  return error == SD_BUS_ERROR_SERVICE_UNKNOWN || error == SD_BUS_ERROR_NAME_HAS_NO_OWNER ||
         error == "org.freedesktop.DBus.Error.NoReply";
}

/// Waits in the name's queue until it is ours; whether it is in time.
bool awaitName(sd_bus* bus) {
  const Uptime deadline = std::chrono::steady_clock::now() + successorPatience;
  while (true) {
    const int result = sd_bus_request_name(bus, name, SD_BUS_NAME_QUEUE);
    if (result > 0 || result == -EALREADY) return true;
    if (result < 0) return false;
    // The bus tells us when it is.
    if (!waitForBusConnection(bus, deadline)) return false;
    while (sd_bus_process(bus, nullptr) > 0) {
    }
  }
}

}  // namespace

InstanceName::InstanceName() {
  openBusConnection(bus_, std::chrono::steady_clock::now() + busPatience);
}

InstanceName::~InstanceName() = default;

InstanceName::Claim InstanceName::claim(bool isSuccessor) {
  if (!bus_) return Claim::ours;
  sd_bus_add_object(
      bus_.get(), nullptr, path,
      [](sd_bus_message* message, void* self, sd_bus_error*) {
        if (sd_bus_message_is_method_call(message, applicationInterface, "Activate") <= 0) return 0;
        static_cast<InstanceName*>(self)->show();
        return sd_bus_reply_method_return(message, "");
      },
      this);
  if (isSuccessor) return awaitName(bus_.get()) ? Claim::ours : Claim::failed;
  const Uptime deadline = std::chrono::steady_clock::now() + successorPatience;
  while (std::chrono::steady_clock::now() < deadline) {
    const int result = sd_bus_request_name(bus_.get(), name, 0);
    if (result >= 0) return Claim::ours;
    // The bus has gone.
    if (result != -EEXIST) return Claim::ours;
    const std::optional<std::string> error = showAnother(bus_.get());
    if (!error) return Claim::anothers;
    if (!hasGone(*error)) return Claim::failed;
  }
  return Claim::failed;
}

void InstanceName::serve(std::function<void()> show) {
  if (!bus_) return;
  show_ = std::move(show);
  if (std::exchange(isWanted_, false)) show_();
  notifier_ = std::make_unique<QSocketNotifier>(sd_bus_get_fd(bus_.get()), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { process(); });
  // What came along with the answers so far.
  QTimer::singleShot(0, notifier_.get(), [this] { process(); });
}

void InstanceName::show() {
  isWanted_ = !show_;
  if (show_) show_();
}

void InstanceName::process() {
  int result = 0;
  do {
    result = sd_bus_process(bus_.get(), nullptr);
  } while (result > 0);
  // The session bus has gone; the program goes on.
  if (result < 0 || sd_bus_is_open(bus_.get()) <= 0) notifier_->setEnabled(false);
}

}  // namespace talmo
