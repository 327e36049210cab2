#include "tests/desktop/web/TalmoCopy.h"

#include <fstream>

namespace talmo::test {

TalmoCopy::TalmoCopy(const std::string& script) {
  namespace fs = std::filesystem;
  const fs::path built = TALMO_PROGRAM;
  // Talmo looks for the rest of its bundle beside its own file.
  fs::copy_file(built, program());
  for (const char* part : {"frameworks", "resources"}) {
    fs::create_directory_symlink(built.parent_path() / part, folder() / part);
  }
  const fs::path osascript = folder() / "libexec" / "osascript";
  fs::create_directory(osascript.parent_path());
  std::ofstream(osascript) << "#!/bin/sh\n"
                           << "osascript='" << (built.parent_path() / "libexec/osascript").string()
                           << "'\nfolder='" << folder().string() << "'\n"
                           << script;
  fs::permissions(osascript, fs::perms::owner_all);
}

}  // namespace talmo::test
