#include "tests/support/Tunes.h"

#include <chrono>
#include <cmath>
#include <fstream>
#include <ios>
#include <numbers>
#include <stdexcept>

#include "tests/support/TestProcess.h"

namespace talmo::test {
namespace {

constexpr std::uint32_t samplesPerSecond = 8000;
constexpr std::uint32_t bytesPerSample = 2;

template <typename Integer>
void append(std::string& bytes, Integer value) {
  for (std::size_t i = 0; i < sizeof(Integer); ++i) {
    bytes.push_back(static_cast<char>((static_cast<std::uint64_t>(value) >> (8 * i)) & 0xFF));
  }
}

}  // namespace

std::string tune(int hertz, std::uint32_t seconds) {
  // A second holds a whole number of periods, so the tone is one second over and over.
  std::string second;
  constexpr double amplitude = 600;  // of 32767: quiet
  for (std::uint32_t i = 0; i < samplesPerSecond; ++i) {
    const double phase = 2 * std::numbers::pi * hertz * i / samplesPerSecond;
    append(second, static_cast<std::uint16_t>(std::lround(amplitude * std::sin(phase))));
  }
  const auto dataSize = static_cast<std::uint32_t>(second.size() * seconds);
  std::string bytes = "RIFF";
  append(bytes, std::uint32_t{36} + dataSize);
  bytes += "WAVEfmt ";
  append(bytes, std::uint32_t{16});  // size of the format chunk
  append(bytes, std::uint16_t{1});   // PCM
  append(bytes, std::uint16_t{1});   // channels
  append(bytes, samplesPerSecond);
  append(bytes, samplesPerSecond * bytesPerSample);
  append(bytes, static_cast<std::uint16_t>(bytesPerSample));
  append(bytes, std::uint16_t{16});  // bits per sample
  bytes += "data";
  append(bytes, dataSize);
  for (std::uint32_t i = 0; i < seconds; ++i) bytes += second;
  return bytes;
}

std::vector<std::filesystem::path> writeTunes(const std::filesystem::path& folder) {
  constexpr std::uint32_t seconds = 300;
  std::filesystem::create_directories(folder);
  std::vector<std::filesystem::path> paths;
  for (const int hertz : {220, 330, 440}) {
    paths.push_back(folder / ("tune-" + std::to_string(paths.size() + 1) + ".wav"));
    const std::string bytes = tune(hertz, seconds);
    std::ofstream file(paths.back(), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw std::runtime_error("cannot write " + paths.back().string());
  }
  return paths;
}

void writeCover(const std::filesystem::path& folder) {
  const std::string size = std::to_string(coverSize) + "x" + std::to_string(coverSize);
  TestProcess convert({.arguments = {"convert", "-size", size, "gradient:#3b1d8f-#f2709c",
                                     "PNG24:" + (folder / "cover.png").string()}});
  if (convert.waitForExit(std::chrono::seconds(30)) != 0) {
    throw std::runtime_error("cannot make a cover: " + convert.output());
  }
}

}  // namespace talmo::test
