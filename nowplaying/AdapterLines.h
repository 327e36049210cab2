#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace talmo {

/// Cuts the adapter's output into lines, whatever pieces it arrives in. Each byte is looked at once
/// and copied once, into its line.
class AdapterLines {
 public:
  /// The longest line, in bytes without its line feed. It leaves room for the largest artwork that
  /// the adapter sends. A longer one is dropped as a whole, and what follows it is read as usual.
  static constexpr std::size_t maximumLength = std::size_t{32} * 1024 * 1024;

  /// Takes the next piece; returns the lines that end in it, in order, empty ones left out, each
  /// with the capacity that `AdapterJson` wants.
  std::vector<std::string> append(std::string piece);

  /// Forgets the unfinished line.
  void clear();

 private:
  /// A piece of which the line takes what follows `begin`.
  struct Piece {
    std::string bytes;
    std::size_t begin = 0;
  };

  std::string takeLine(std::string_view end);

  /// The unfinished line.
  std::vector<Piece> pieces_;
  std::size_t length_ = 0;
  bool isTooLong_ = false;
};

}  // namespace talmo
