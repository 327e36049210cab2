#include <gtest/gtest.h>

#include "platform/macos/interface/EventTranslation.h"

namespace talmo::test {
namespace {

using Type = InterfaceEvent::Type;

// Of NSEventModifierFlags: what is no modifier key that is held.
constexpr std::uint64_t capsLock = 1 << 16;
constexpr std::uint64_t numericPad = 1 << 21;
constexpr std::uint64_t function = 1 << 23;
// The left shift key, of the bits that depend on the device.
constexpr std::uint64_t leftShift = 2;

TEST(EventTranslation, AnEventInAWindowOfOursNamesIt) {
  EXPECT_EQ(interfaceEventOf({.type = 1, .windowNumber = 4711, .hasWindow = true}),
            (InterfaceEvent{.type = Type::leftMouseDown, .window = 4711}));
}

TEST(EventTranslation, AnEventElsewhereHasNoWindowWhateverItsNumberSays) {
  EXPECT_EQ(interfaceEventOf({.type = 3, .windowNumber = 4711}),
            (InterfaceEvent{.type = Type::rightMouseDown}));
}

TEST(EventTranslation, EachTypeOfTheProgramIsKnown) {
  for (const Type type :
       {Type::leftMouseDown, Type::rightMouseDown, Type::rightMouseUp, Type::keyDown}) {
    const auto event = interfaceEventOf({.type = static_cast<std::uint64_t>(type)});
    ASSERT_TRUE(event.has_value());
    EXPECT_EQ(event->type, type);
  }
}

TEST(EventTranslation, OtherTypesAreNothing) {
  // Left mouse up, mouse moved, key up, system defined; and one that a narrower number would take
  // for a left mouse down.
  for (const std::uint64_t type : {2U, 5U, 11U, 14U, 257U}) {
    EXPECT_EQ(interfaceEventOf({.type = type}), std::nullopt) << type;
  }
}

TEST(EventTranslation, AnArrowKeyIsAKeyWithoutModifiers) {
  EXPECT_EQ(interfaceEventOf({.type = 10,
                              .windowNumber = 7,
                              .hasWindow = true,
                              .keyCode = 125,
                              .modifierFlags = capsLock | numericPad | function | leftShift}),
            (InterfaceEvent{.type = Type::keyDown, .window = 7, .keyCode = 125}));
}

TEST(EventTranslation, TheModifierKeysThatAreHeldAreTold) {
  constexpr std::uint64_t all = InterfaceEvent::shift | InterfaceEvent::control |
                                InterfaceEvent::option | InterfaceEvent::command;
  const auto event = interfaceEventOf({.type = 10, .modifierFlags = all | capsLock | leftShift});
  ASSERT_TRUE(event.has_value());
  EXPECT_EQ(event->modifiers, all);
}

TEST(EventTranslation, AWindowThatTheServerDoesNotHaveIsNone) {
  EXPECT_EQ(windowIdentifierOf(-1), 0U);
  EXPECT_EQ(windowIdentifierOf(0), 0U);
  EXPECT_EQ(windowIdentifierOf(1), 1U);
}

}  // namespace
}  // namespace talmo::test
