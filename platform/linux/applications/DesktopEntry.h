#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/applications/GlibHandles.h"

namespace talmo {

/// A desktop entry of an installed application. Entries that are hidden, and those whose program is
/// missing, do not exist. Any thread; one object on one thread at a time.
class DesktopEntry {
 public:
  /// The entry of that id, without ".desktop", in the person's and the system's data folders.
  static std::optional<DesktopEntry> withID(std::string_view id);

  /// The first of the entries of these ids.
  static std::optional<DesktopEntry> firstOf(const std::vector<std::string_view>& ids);

  /// The entry in the file at a file URL.
  static std::optional<DesktopEntry> atURL(const std::string& url);

  /// The application that opens URLs of that URL's scheme, or files of that file's type.
  static std::optional<DesktopEntry> defaultForURL(const std::string& url);

  /// The entry that names that window class as its own (StartupWMClass).
  static std::optional<DesktopEntry> withWindowClass(std::string_view windowClass);

  /// The id without ".desktop".
  std::string id() const;

  /// Where the entry is, as a file URL.
  std::string url() const;

  /// The application's name in the person's language.
  std::string name() const;

  /// The name of its icon in the icon theme, or the path of a picture; empty when it has none.
  std::string iconName() const;

  /// The file name of the program that it starts.
  std::string executable() const;

  /// The name on the session bus by which the application wants to be started; nothing for one that
  /// is started as a program.
  std::optional<std::string> busName() const;

  GDesktopAppInfo* get() const { return info_.get(); }

 private:
  explicit DesktopEntry(GDesktopAppInfo* info) : info_(info) {}
  static std::optional<DesktopEntry> owning(GDesktopAppInfo* info);

  GObjectHandle<GDesktopAppInfo> info_;
};

}  // namespace talmo
