#include "platform/linux/login/LinuxLoginItem.h"

#include <cerrno>
#include <cstddef>
#include <memory>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "platform/linux/applications/GlibHandles.h"
#include "platform/linux/files/BaseFolders.h"
#include "platform/linux/files/WholeFile.h"

namespace talmo {
namespace {

constexpr const char* fileName = "nl.brelm.Talmo.desktop";
constexpr const char* autostartSwitch = "X-GNOME-Autostart-enabled";

// Hundreds of times what an entry takes with all its translations.
constexpr std::size_t longestEntry = std::size_t{1} << 20U;

using KeyFile = std::unique_ptr<GKeyFile, GlibRelease>;

std::string errorText() {
  return std::generic_category().message(errno);
}

/// The path as one argument of a command line (Desktop Entry Specification, "The Exec key").
std::string asArgument(std::string_view path) {
  std::string result = "\"";
  for (const char letter : path) {
    if (std::string_view("\"`$\\").find(letter) != std::string_view::npos) result += '\\';
    if (letter == '%') result += '%';
    result += letter;
  }
  return result + '"';
}

std::string commandLine(const std::string& program) {
  std::string line = asArgument(program);
  // GIO looks whether the first program is there before it reads %% as %. This one changes nothing,
  // and unlike env takes a path with an equals sign for no variable.
  if (program.find('%') != std::string::npos) line.insert(0, "nice -n 0 ");
  return line;
}

}  // namespace

LinuxLoginItem::LinuxLoginItem(std::filesystem::path program, const std::filesystem::path& folder)
    : program_(std::move(program)), file_(folder / fileName) {}

std::filesystem::path LinuxLoginItem::runningProgram() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error);
}

std::filesystem::path LinuxLoginItem::standardFolder() {
  return configHome() / "autostart";
}

bool LinuxLoginItem::isEnabled() const {
  const std::optional<std::string> text = WholeFile(file_).read(longestEntry).text;
  if (!text) return false;
  const KeyFile content(g_key_file_new());
  if (g_key_file_load_from_data(content.get(), text->data(), text->size(), G_KEY_FILE_NONE,
                                nullptr) == FALSE) {
    return false;
  }
  // Gives nothing for an entry whose program is not there.
  const GObjectHandle<GDesktopAppInfo> entry(g_desktop_app_info_new_from_keyfile(content.get()));
  if (!entry || g_desktop_app_info_get_is_hidden(entry.get()) != FALSE) return false;
  return g_desktop_app_info_has_key(entry.get(), autostartSwitch) == FALSE ||
         g_desktop_app_info_get_boolean(entry.get(), autostartSwitch) != FALSE;
}

std::optional<std::string> LinuxLoginItem::registerMainApp() {
  const std::string& program = program_.native();
  if (::access(program.c_str(), X_OK) != 0) return program + ": " + errorText();
  if (g_utf8_validate(program.c_str(), -1, nullptr) == FALSE) {
    return program + ": a desktop entry cannot hold a path that is not UTF-8";
  }
  const KeyFile entry(g_key_file_new());
  const auto set = [&entry](const char* key, const std::string& value) {
    g_key_file_set_string(entry.get(), G_KEY_FILE_DESKTOP_GROUP, key, value.c_str());
  };
  set(G_KEY_FILE_DESKTOP_KEY_TYPE, G_KEY_FILE_DESKTOP_TYPE_APPLICATION);
  set(G_KEY_FILE_DESKTOP_KEY_NAME, "Talmo");
  set(G_KEY_FILE_DESKTOP_KEY_COMMENT, "Sends the media keys to the right player");
  set(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC, program);
  set(G_KEY_FILE_DESKTOP_KEY_EXEC, commandLine(program));
  const GlibText text(g_key_file_to_data(entry.get(), nullptr, nullptr));
  return WholeFile(file_).write(text.get());
}

std::optional<std::string> LinuxLoginItem::unregisterMainApp() {
  if (::unlink(file_.c_str()) == 0 || errno == ENOENT) return std::nullopt;
  return errorText();
}

}  // namespace talmo
