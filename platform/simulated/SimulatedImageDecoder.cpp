#include "platform/simulated/SimulatedImageDecoder.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

#include "support/MutexLock.h"

namespace talmo {
namespace {

constexpr int largestSide = 4096;

/// A number from 1 to `largestSide` in front of `end`; takes both away. 0 when there is none.
int takeSide(std::string_view& text, char end) {
  int side = 0;
  const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), side);
  if (error != std::errc() || rest == text.data() + text.size() || *rest != end) return 0;
  text.remove_prefix(static_cast<std::size_t>(rest - text.data()) + 1);
  return side >= 1 && side <= largestSide ? side : 0;
}

/// FNV-1a, whose numbers are its authors'.
std::uint32_t hash(std::string_view text) {
  std::uint32_t value = 2166136261U;
  for (const char character : text) {
    value = (value ^ static_cast<std::uint8_t>(character)) * 16777619U;
  }
  return value;
}

}  // namespace

std::string SimulatedImageDecoder::encode(int width, int height, const std::string& name) {
  return "image " + std::to_string(width) + "x" + std::to_string(height) + " " + name + "\n";
}

std::optional<Image> SimulatedImageDecoder::decode(std::string_view bytes) {
  {
    const MutexLock lock(mutex_);
    ++decodes_;
  }
  constexpr std::string_view start = "image ";
  if (!bytes.starts_with(start)) return std::nullopt;
  bytes.remove_prefix(start.size());
  const int width = takeSide(bytes, 'x');
  if (width == 0) return std::nullopt;
  const int height = takeSide(bytes, ' ');
  if (height == 0) return std::nullopt;
  const std::size_t end = bytes.find('\n');
  if (end == std::string_view::npos) return std::nullopt;

  const std::uint32_t colour = hash(bytes.substr(0, end));
  const std::array<std::uint8_t, 4> pixel{static_cast<std::uint8_t>(colour),
                                          static_cast<std::uint8_t>(colour >> 8),
                                          static_cast<std::uint8_t>(colour >> 16), 0xFF};
  const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  auto pixels = std::make_shared<std::vector<std::uint8_t>>();
  pixels->reserve(count * pixel.size());
  for (std::size_t i = 0; i < count; ++i) pixels->insert(pixels->end(), pixel.begin(), pixel.end());
  return Image{.width = width, .height = height, .pixels = std::move(pixels)};
}

int SimulatedImageDecoder::decodes() const {
  const MutexLock lock(mutex_);
  return decodes_;
}

}  // namespace talmo
