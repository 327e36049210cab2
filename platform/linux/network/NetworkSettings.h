#pragma once

#include <filesystem>

#include "platform/Network.h"
#include "support/Time.h"

namespace talmo {

/// Whom `LinuxNetwork` trusts and how long it waits.
struct NetworkSettings {
  /// The certificates of the authorities to trust, and no others, in a PEM file; the system's when
  /// empty.
  std::filesystem::path authorities;
  /// For a connection to stand, its name look-up and TLS included.
  Duration connectTimeout = std::chrono::seconds(5);
  /// For the whole request.
  Duration timeout = Network::timeout;
};

}  // namespace talmo
