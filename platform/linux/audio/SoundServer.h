#pragma once

#include <memory>
#include <vector>

#include "platform/AudioResult.h"
#include "platform/linux/audio/SoundStream.h"
#include "support/Time.h"

struct pa_context;
struct pa_mainloop;

namespace talmo {

/// A connection to the person's sound server. It is kept from one call to the next, is served
/// inside the calls only, and is opened anew by the next call once it failed. One thread at a time.
class SoundServer {
 public:
  SoundServer();
  ~SoundServer();
  SoundServer(const SoundServer&) = delete;
  SoundServer& operator=(const SoundServer&) = delete;

  /// The playback streams, within half a second. A server that is absent, goes away or is slower
  /// is a status, one of libpulse's error codes; none is ever started.
  AudioResult<std::vector<SoundStream>> streams();

 private:
  struct FreeLoop {
    void operator()(pa_mainloop* loop) const;
  };
  struct EndContext {
    void operator()(pa_context* context) const;
  };

  /// Opens the connection if there is none; a status.
  int connect(Uptime deadline);
  int list(std::vector<SoundStream>& streams, Uptime deadline);
  /// Serves the connection once; false when the deadline has come.
  bool serve(Uptime deadline);
  int failure() const;

  std::unique_ptr<pa_mainloop, FreeLoop> loop_;
  std::unique_ptr<pa_context, EndContext> context_;
};

}  // namespace talmo
