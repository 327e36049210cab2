#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "tests/contract/AudioObjectsWorld.h"

namespace talmo::test {

/// What every `AudioObjects` does. Instantiated once per backend, with what makes a fresh world.
class AudioObjectsContract
    : public testing::TestWithParam<std::function<std::unique_ptr<AudioObjectsWorld>()>> {
 protected:
  using Object = AudioObjects::Object;

  AudioObjectsWorld& world() { return *world_; }
  AudioObjects& audio() { return world_->audioObjects(); }

  /// The list, which there must be.
  std::vector<Object> list();

  /// Whether the process plays; it must be in the list.
  bool isPlaying(AudioObjectsWorld::Stream stream);

  /// The object of the process; 0 when there is none.
  Object objectOf(AudioObjectsWorld::Stream stream);

 private:
  const std::unique_ptr<AudioObjectsWorld> world_ = GetParam()();
};

}  // namespace talmo::test
