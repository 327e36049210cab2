#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace talmo::test {

/// A quiet sine tone as a RIFF/WAVE file: one channel of 16-bit little-endian samples.
std::string tune(int hertz, std::uint32_t seconds);

/// Writes three quiet sine tones of different pitch as WAV files into `folder`, which is made, and
/// returns their paths in playing order: tune-1.wav, tune-2.wav, tune-3.wav. Each lasts five
/// minutes, so that no player reaches the next one by itself while a test waits for it.
std::vector<std::filesystem::path> writeTunes(const std::filesystem::path& folder);

/// Both sides of the picture that `writeCover` writes, in pixels.
constexpr int coverSize = 300;

/// Puts a picture into a folder of tunes, where players look for the cover of an album.
void writeCover(const std::filesystem::path& folder);

}  // namespace talmo::test
