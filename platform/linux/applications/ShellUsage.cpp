#include "platform/linux/applications/ShellUsage.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/linux/applications/GlibHandles.h"
#include "platform/linux/applications/UnixTime.h"
#include "platform/linux/files/WholeFile.h"

namespace talmo {
namespace {

// A line of some hundred bytes for each application.
constexpr std::size_t longestRecord = std::size_t{1} << 20U;

struct Search {
  std::string id;
  std::optional<Date> latest;
};

std::optional<Date> dateIn(std::string_view text) {
  std::int64_t seconds = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return dateOfUnixTime(seconds);
}

/// <application id="vlc.desktop" ... last-seen="1700000000"/>
void takeElement(GMarkupParseContext*, const char* element, const char** names, const char** values,
                 gpointer data, GError**) {
  if (std::string_view(element) != "application") return;
  Search& search = *static_cast<Search*>(data);
  std::string_view id;
  std::optional<Date> date;
  for (; *names != nullptr; ++names, ++values) {
    if (std::string_view(*names) == "id") id = *values;
    if (std::string_view(*names) == "last-seen") date = dateIn(*values);
  }
  // An application may stand there several times. An absent date is less than every other.
  if (id == search.id) search.latest = std::max(search.latest, date);
}

}  // namespace

std::optional<Date> lastTimeInFront(const DesktopEntry& entry) {
  const std::string path = std::string(g_get_user_data_dir()) + "/gnome-shell/application_state";
  const std::optional<std::string> text = WholeFile(path).read(longestRecord).text;
  if (!text) return std::nullopt;
  Search search{.id = entry.id() + ".desktop", .latest = std::nullopt};
  GMarkupParser parser{};
  parser.start_element = takeElement;
  const std::unique_ptr<GMarkupParseContext, GlibRelease> context(
      g_markup_parse_context_new(&parser, static_cast<GMarkupParseFlags>(0), &search, nullptr));
  const bool isWhole =
      g_markup_parse_context_parse(context.get(), text->data(), static_cast<gssize>(text->size()),
                                   nullptr) != FALSE &&
      g_markup_parse_context_end_parse(context.get(), nullptr) != FALSE;
  if (!isWhole) return std::nullopt;
  return search.latest;
}

}  // namespace talmo
