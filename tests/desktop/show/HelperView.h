#pragma once

#include <filesystem>
#include <functional>
#include <optional>

#include "nowplaying/AdapterNowPlaying.h"
#include "platform/linux/dispatch/LinuxDispatch.h"
#include "platform/linux/images/LinuxImageDecoder.h"
#include "platform/linux/LinuxBundle.h"
#include "platform/linux/processes/LinuxChildProcesses.h"
#include "tests/support/PrivateDesktop.h"
#include "tests/support/TestPlatform.h"

namespace talmo::test {

/// What the now-playing helper sees on a private desktop, asked by the program's own component in
/// this process. Sets the process's environment to that of the desktop. Main thread.
class HelperView {
 public:
  /// `bundleFolder` holds the helper as it was built.
  HelperView(const PrivateDesktop& desktop, const std::filesystem::path& bundleFolder);
  ~HelperView();
  HelperView(const HelperView&) = delete;
  HelperView& operator=(const HelperView&) = delete;

  /// What one run of the helper says.
  std::optional<AdapterNowPlayingSnapshot> look();

 private:
  LinuxBundle bundle_;
  LinuxChildProcesses childProcesses_;
  LinuxDispatch dispatch_;
  LinuxImageDecoder imageDecoder_;
  TestPlatform platform_{{.bundle = &bundle_,
                          .childProcesses = &childProcesses_,
                          .dispatch = &dispatch_,
                          .imageDecoder = &imageDecoder_}};
};

}  // namespace talmo::test
