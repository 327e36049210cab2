#pragma once

#include <memory>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace talmo {

/// Owners of what GLib hands out, each with its own way of letting go.
struct GlibRelease {
  void operator()(char* text) const { g_free(text); }
  void operator()(char** list) const { g_strfreev(list); }
  void operator()(GError* error) const { g_error_free(error); }
  void operator()(GBookmarkFile* file) const { g_bookmark_file_free(file); }
  void operator()(GKeyFile* file) const { g_key_file_unref(file); }
  void operator()(GMarkupParseContext* context) const { g_markup_parse_context_unref(context); }
};

struct GObjectRelease {
  void operator()(void* object) const { g_object_unref(object); }
};

using GlibText = std::unique_ptr<char, GlibRelease>;
using GlibError = std::unique_ptr<GError, GlibRelease>;

template <class Object>
using GObjectHandle = std::unique_ptr<Object, GObjectRelease>;

}  // namespace talmo
