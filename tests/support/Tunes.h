#pragma once

#include <filesystem>
#include <vector>

namespace talmo::test {

/// Writes three quiet sine tones of different pitch as WAV files of `seconds` each into `folder`,
/// and returns their paths in playing order: tune-1.wav, tune-2.wav, tune-3.wav.
std::vector<std::filesystem::path> writeTunes(const std::filesystem::path& folder,
                                              int seconds = 20);

}  // namespace talmo::test
