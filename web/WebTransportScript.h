#pragma once

#include <string>
#include <string_view>

namespace talmo {

/// The JavaScript of one web player, one text per command. The last expression of each is the
/// string 'ok', which is what the browser's call returns.
struct WebTransportScript {
  std::string toggle;
  std::string next;
  std::string previous;

  bool operator==(const WebTransportScript&) const = default;

  /// The script that clicks the first element of a selector, if there is one. The selector is
  /// inserted verbatim and holds no quote.
  static std::string click(std::string_view selector);

  /// A player whose three commands are clicks.
  static WebTransportScript clicking(std::string_view toggle, std::string_view next,
                                     std::string_view previous);
};

}  // namespace talmo
