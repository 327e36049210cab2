#pragma once

#include <filesystem>
#include <vector>

namespace talmo::test {

/// Writes three quiet sine tones of different pitch as WAV files into `folder`, which is made, and
/// returns their paths in playing order: tune-1.wav, tune-2.wav, tune-3.wav. Each lasts five
/// minutes, so that no player reaches the next one by itself while a test waits for it.
std::vector<std::filesystem::path> writeTunes(const std::filesystem::path& folder);

/// Both sides of the picture that `writeCover` writes, in pixels.
constexpr int coverSize = 300;

/// Puts a picture into a folder of tunes, where players look for the cover of an album.
void writeCover(const std::filesystem::path& folder);

}  // namespace talmo::test
