#include "platform/linux/audio/SoundServer.h"

#include <charconv>
#include <chrono>
#include <pulse/context.h>
#include <pulse/def.h>
#include <pulse/error.h>
#include <pulse/introspect.h>
#include <pulse/mainloop.h>
#include <pulse/operation.h>
#include <pulse/proplist.h>
#include <string_view>
#include <system_error>

namespace talmo {
namespace {

using namespace std::chrono_literals;

constexpr Duration longestCall = 500ms;

struct CancelOperation {
  void operator()(pa_operation* operation) const {
    pa_operation_cancel(operation);
    pa_operation_unref(operation);
  }
};

struct Listing {
  std::vector<SoundStream>& streams;
  bool hasEnded = false;
  bool hasFailed = false;
};

std::string_view property(const pa_sink_input_info& info, const char* name) {
  const char* value = pa_proplist_gets(info.proplist, name);
  return value == nullptr ? std::string_view() : value;
}

std::optional<ProcessIdentifier> processOf(const pa_sink_input_info& info) {
  const std::string_view text = property(info, PA_PROP_APPLICATION_PROCESS_ID);
  ProcessIdentifier process = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), process);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return process;
}

void addStream(pa_context*, const pa_sink_input_info* info, int end, void* data) {
  Listing& listing = *static_cast<Listing*>(data);
  if (end != 0) {
    (end > 0 ? listing.hasEnded : listing.hasFailed) = true;
    return;
  }
  listing.streams.push_back(
      {.process = processOf(*info),
       .executable = std::string(property(*info, PA_PROP_APPLICATION_PROCESS_BINARY)),
       .isPlaying = info->corked == 0 && info->client != PA_INVALID_INDEX});
}

}  // namespace

SoundServer::SoundServer() = default;
SoundServer::~SoundServer() = default;

AudioResult<std::vector<SoundStream>> SoundServer::streams() {
  const Uptime deadline = std::chrono::steady_clock::now() + longestCall;
  AudioResult<std::vector<SoundStream>> result;
  result.status = connect(deadline);
  if (result.status == 0) result.status = list(result.value, deadline);
  if (result.status != 0) {
    context_.reset();
    result.value.clear();
  }
  return result;
}

int SoundServer::connect(Uptime deadline) {
  if (context_) return 0;
  if (!loop_) loop_.reset(pa_mainloop_new());
  if (!loop_) return PA_ERR_INTERNAL;
  context_.reset(pa_context_new(pa_mainloop_get_api(loop_.get()), "Talmo"));
  if (!context_) return PA_ERR_INTERNAL;
  if (pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) {
    return failure();
  }
  while (true) {
    const pa_context_state_t state = pa_context_get_state(context_.get());
    if (state == PA_CONTEXT_READY) return 0;
    if (!PA_CONTEXT_IS_GOOD(state)) return failure();
    if (!serve(deadline)) return PA_ERR_TIMEOUT;
  }
}

int SoundServer::list(std::vector<SoundStream>& streams, Uptime deadline) {
  Listing listing{.streams = streams};
  const std::unique_ptr<pa_operation, CancelOperation> operation(
      pa_context_get_sink_input_info_list(context_.get(), addStream, &listing));
  if (!operation) return failure();
  while (!listing.hasEnded) {
    if (listing.hasFailed || !PA_CONTEXT_IS_GOOD(pa_context_get_state(context_.get()))) {
      return failure();
    }
    if (!serve(deadline)) return PA_ERR_TIMEOUT;
  }
  return 0;
}

bool SoundServer::serve(Uptime deadline) {
  const auto left = std::chrono::duration_cast<std::chrono::microseconds>(
      deadline - std::chrono::steady_clock::now());
  if (left <= 0us) return false;
  return pa_mainloop_prepare(loop_.get(), static_cast<int>(left.count())) >= 0 &&
         pa_mainloop_poll(loop_.get()) >= 0 && pa_mainloop_dispatch(loop_.get()) >= 0;
}

int SoundServer::failure() const {
  const int error = pa_context_errno(context_.get());
  return error != 0 ? error : PA_ERR_UNKNOWN;
}

void SoundServer::FreeLoop::operator()(pa_mainloop* loop) const {
  pa_mainloop_free(loop);
}

void SoundServer::EndContext::operator()(pa_context* context) const {
  pa_context_disconnect(context);
  pa_context_unref(context);
}

}  // namespace talmo
