#include "nowplaying/AdapterFiles.h"

#include <utility>

#include "platform/Platform.h"
#include "support/Logger.h"

namespace talmo {
namespace {

constexpr Logger log("adapter");

}  // namespace

std::optional<std::string> AdapterFiles::scriptPath() {
  return platform().bundle().resourcePath("mediaremote-adapter", "pl");
}

std::optional<AdapterFiles> AdapterFiles::find() {
  const Bundle& bundle = platform().bundle();
  std::optional<std::string> script = scriptPath();
  const std::optional<std::string> frameworks = bundle.privateFrameworksPath();
  if (script && frameworks) {
    std::string framework = *frameworks + "/MediaRemoteAdapter.framework";
    if (bundle.fileExists(*script) && bundle.fileExists(framework)) {
      return AdapterFiles{.script = std::move(*script), .framework = std::move(framework)};
    }
  }
  log.info("adapter unavailable: bundled script or framework missing");
  return std::nullopt;
}

ChildProcessParameters AdapterFiles::run(const std::vector<std::string>& arguments,
                                         ChildOutput standardError) const {
  std::vector<std::string> all = {script, framework};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return {.executable = "/usr/bin/perl",
          .arguments = std::move(all),
          .standardOutput = ChildOutput::pipe,
          .standardError = standardError};
}

}  // namespace talmo
