#include "platform/linux/applications/SessionBus.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <system_error>
#include <utility>

#include <systemd/sd-bus.h>

namespace talmo {
namespace {

struct UnrefSlot {
  void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
};
using Slot = std::unique_ptr<sd_bus_slot, UnrefSlot>;

using Message = std::unique_ptr<sd_bus_message, BusReply::Unref>;

BusReply failed(std::string error) {
  return {.message = nullptr, .error = std::move(error)};
}

BusReply timedOut(std::string error) {
  return {.message = nullptr, .error = std::move(error), .isTimeout = true};
}

BusReply withoutBus(int result) {
  return failed("no session bus: " + std::generic_category().message(-result));
}

Message makeMessage(sd_bus* bus, const BusCall& call) {
  sd_bus_message* raw = nullptr;
  if (sd_bus_message_new_method_call(bus, &raw, call.destination.c_str(), call.path.c_str(),
                                     call.interface.c_str(), call.member.c_str()) < 0) {
    return nullptr;
  }
  Message message(raw);
  if (sd_bus_message_set_auto_start(raw, 0) < 0) return nullptr;
  for (const std::string& argument : call.arguments) {
    if (sd_bus_message_append_basic(raw, 's', argument.c_str()) < 0) return nullptr;
  }
  return message;
}

/// What waits for one reply.
struct Pending {
  BusReply reply;
  bool isAnswered = false;
  Slot slot;
};

int takeReply(sd_bus_message* message, void* data, sd_bus_error*) {
  Pending& pending = *static_cast<Pending*>(data);
  pending.isAnswered = true;
  if (const sd_bus_error* error = sd_bus_message_get_error(message)) {
    std::string words = error->name;
    if (error->message != nullptr) words.append(": ").append(error->message);
    pending.reply = failed(std::move(words));
  } else {
    pending.reply = {.message = Message(sd_bus_message_ref(message)), .error = {}};
  }
  return 1;
}

}  // namespace

void BusReply::Unref::operator()(sd_bus_message* unwanted) const {
  sd_bus_message_unref(unwanted);
}

SessionBus& SessionBus::ofThisThread() {
  thread_local SessionBus bus;
  return bus;
}

BusReply SessionBus::call(const BusCall& call, Uptime deadline) {
  return std::move(callAll({call}, deadline).front());
}

std::vector<BusReply> SessionBus::callAll(const std::vector<BusCall>& calls, Uptime deadline,
                                          const std::function<bool(const BusReply&)>& suffices) {
  std::vector<BusReply> replies(calls.size());
  if (std::optional<BusReply> failure = connect(deadline)) {
    for (BusReply& reply : replies) {
      reply = {.message = nullptr, .error = failure->error, .isTimeout = failure->isTimeout};
    }
    return replies;
  }
  // Never resized: sd-bus keeps the addresses until the slots go.
  std::vector<Pending> pending(calls.size());
  for (std::size_t index = 0; index < calls.size(); ++index) {
    pending[index].reply = timedOut("no answer in time");
    const Message message = makeMessage(bus_.get(), calls[index]);
    sd_bus_slot* slot = nullptr;
    const int result = message ? sd_bus_call_async(bus_.get(), &slot, message.get(), takeReply,
                                                   &pending[index], UINT64_MAX)
                               : -EINVAL;
    pending[index].slot.reset(slot);
    if (result < 0) {
      pending[index].reply = withoutBus(result);
      pending[index].isAnswered = true;
    }
  }
  const auto isDone = [&] {
    return std::ranges::all_of(pending, &Pending::isAnswered) ||
           (suffices && std::ranges::any_of(pending, [&](const Pending& one) {
              return one.reply.message != nullptr && suffices(one.reply);
            }));
  };
  while (!isDone()) {
    const int result = sd_bus_process(bus_.get(), nullptr);
    if (result > 0) continue;
    if (result < 0) {
      for (Pending& one : pending) {
        if (!one.isAnswered) one.reply = withoutBus(result);
      }
      break;
    }
    if (!waitForBusConnection(bus_.get(), deadline)) break;
  }
  for (std::size_t index = 0; index < calls.size(); ++index) {
    replies[index] = std::move(pending[index].reply);
  }
  return replies;
}

std::optional<BusReply> SessionBus::connect(Uptime deadline) {
  if (bus_) {
    // Whatever came since the last call, the end of the connection above all.
    int result = 0;
    do {
      result = sd_bus_process(bus_.get(), nullptr);
    } while (result > 0);
    if (result < 0 || sd_bus_is_open(bus_.get()) <= 0) bus_.reset();
  }
  if (bus_) return std::nullopt;
  const int result = openBusConnection(bus_, deadline);
  if (result == -ETIMEDOUT) return timedOut("the session bus does not answer");
  if (result < 0) return withoutBus(result);
  return std::nullopt;
}

}  // namespace talmo
