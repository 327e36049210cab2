#include "tests/contract/AudioObjectsContract.h"

#include <algorithm>
#include <cstdint>
#include <set>

#include <gmock/gmock.h>

namespace talmo::test {

using testing::IsEmpty;
using testing::SizeIs;

std::vector<AudioObjects::Object> AudioObjectsContract::list() {
  const auto size = audio().dataSize(AudioObjects::systemObject, AudioObjects::processObjectList);
  EXPECT_EQ(size.status, 0);
  auto objects =
      audio().objects(AudioObjects::systemObject, AudioObjects::processObjectList, size.value);
  EXPECT_EQ(objects.status, 0);
  EXPECT_EQ(size.value, objects.value.size() * 4);
  return objects.value;
}

AudioObjects::Object AudioObjectsContract::objectOf(AudioObjectsWorld::Stream stream) {
  for (const Object object : list()) {
    if (!audio().hasProperty(object, AudioObjects::processPID)) continue;
    const auto process = audio().number(object, AudioObjects::processPID);
    if (process.status == 0 && process.value == static_cast<std::uint32_t>(stream)) return object;
  }
  return 0;
}

bool AudioObjectsContract::isPlaying(AudioObjectsWorld::Stream stream) {
  const Object object = objectOf(stream);
  EXPECT_NE(object, 0U);
  EXPECT_TRUE(audio().hasProperty(object, AudioObjects::processIsRunningOutput));
  const auto running = audio().number(object, AudioObjects::processIsRunningOutput);
  EXPECT_EQ(running.status, 0);
  return running.value != 0;
}

TEST_P(AudioObjectsContract, ASilentSystemHasAnEmptyList) {
  ASSERT_TRUE(audio().hasProcessObjects());
  EXPECT_THAT(list(), IsEmpty());
}

TEST_P(AudioObjectsContract, AnApplicationThatPlaysIsThereWithItsBundleAndProcess) {
  const auto stream = world().start();
  ASSERT_THAT(list(), SizeIs(1));
  EXPECT_TRUE(isPlaying(stream));
  const Object object = objectOf(stream);
  EXPECT_TRUE(audio().hasProperty(object, AudioObjects::processBundleID));
  const auto bundle = audio().string(object, AudioObjects::processBundleID);
  EXPECT_EQ(bundle.status, 0);
  EXPECT_EQ(bundle.value, world().bundleID());
}

TEST_P(AudioObjectsContract, ACorkedStreamDoesNotPlay) {
  const auto stream = world().start();
  world().cork(stream, true);
  EXPECT_FALSE(isPlaying(stream));
  world().cork(stream, false);
  EXPECT_TRUE(isPlaying(stream));
}

TEST_P(AudioObjectsContract, AStreamThatEndedIsGone) {
  const auto stream = world().start();
  const Object object = objectOf(stream);
  world().end(stream);
  EXPECT_THAT(list(), IsEmpty());
  EXPECT_FALSE(audio().hasProperty(object, AudioObjects::processIsRunningOutput));
  EXPECT_NE(audio().number(object, AudioObjects::processIsRunningOutput).status, 0);
}

TEST_P(AudioObjectsContract, EachStreamHasAnObjectOfItsOwn) {
  const auto first = world().start();
  const auto second = world().start();
  world().cork(second, true);
  EXPECT_TRUE(isPlaying(first));
  EXPECT_FALSE(isPlaying(second));
  const std::vector<Object> objects = list();
  EXPECT_THAT(std::set<Object>(objects.begin(), objects.end()), SizeIs(2));
  EXPECT_EQ(std::ranges::count(objects, AudioObjects::systemObject), 0);
}

TEST_P(AudioObjectsContract, AListIsNoLongerThanAskedFor) {
  world().start();
  world().start();
  ASSERT_THAT(list(), SizeIs(2));
  const auto shorter =
      audio().objects(AudioObjects::systemObject, AudioObjects::processObjectList, 7);
  EXPECT_EQ(shorter.status, 0);
  EXPECT_THAT(shorter.value, SizeIs(1));
}

TEST_P(AudioObjectsContract, AnApplicationIsResponsibleForItsHelper) {
  ASSERT_TRUE(audio().knowsResponsibleProcesses());
  AudioObjectsWorld::Stream application = 0;
  const auto helper = world().startHelper(application);
  EXPECT_TRUE(isPlaying(helper));
  EXPECT_FALSE(audio().hasProperty(objectOf(helper), AudioObjects::processBundleID));
  EXPECT_EQ(audio().responsibleProcess(helper), application);
  EXPECT_EQ(audio().responsibleProcess(application), application);
}

TEST_P(AudioObjectsContract, WhatIsNotThereIsAStatus) {
  constexpr AudioObjects::Selector volume = 0x766F6C6D;  // 'volm'
  EXPECT_NE(audio().dataSize(AudioObjects::systemObject, volume).status, 0);
  EXPECT_NE(audio().dataSize(9999, AudioObjects::processObjectList).status, 0);
  EXPECT_NE(audio().objects(AudioObjects::systemObject, volume, 4).status, 0);
  EXPECT_FALSE(audio().hasProperty(9999, AudioObjects::processPID));
  EXPECT_NE(audio().number(9999, AudioObjects::processPID).status, 0);
  EXPECT_NE(audio().string(9999, AudioObjects::processBundleID).status, 0);
  EXPECT_FALSE(audio().hasProperty(objectOf(world().start()), volume));
}

}  // namespace talmo::test
