#include "platform/linux/LinuxWording.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace talmo {
namespace {

struct Sentence {
  std::string_view mac;
  std::string_view linux;
};

constexpr std::array sentences{
    Sentence{"macOS makes you flip this one yourself.",
             "Your desktop makes you flip this one yourself."},
    Sentence{"Open System Settings", "Open Desktop Settings"},
    Sentence{"Can't find it? Reopen System Settings", "Can't find it? Reopen Desktop Settings"},
    Sentence{"macOS will ask once to let Talmo talk to ",
             "Your desktop will ask once to let Talmo talk to "},
    Sentence{"macOS asks once per browser.", "Your desktop asks once per browser."},
    Sentence{"Media keys: macOS default", "Media keys: desktop default"},
};

}  // namespace

std::string LinuxWording::of(const std::string& text) const {
  const auto* const found = std::ranges::find(sentences, text, &Sentence::mac);
  return found == sentences.end() ? text : std::string(found->linux);
}

}  // namespace talmo
