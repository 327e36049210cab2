#include "platform/macos/applications/MacScriptingObject.h"

#include <cstdint>
#include <memory>

#import <AppKit/AppKit.h>
#import <Foundation/Foundation.h>

#include "platform/macos/applications/DescriptorContent.h"
#include "platform/macos/applications/ScriptingReturn.h"
#include "platform/macos/FourCharacterCode.h"
#include "platform/macos/images/Pixels.h"
#include "platform/macos/Text.h"

namespace talmo {
namespace {

// The receiver and the selector ("Objective-C Runtime Programming Guide", Messaging).
constexpr NSUInteger hiddenArguments = 2;
constexpr std::uint32_t missingValue = fourCharacterCode("msng");

SEL selectorOf(std::string_view name) {
  return NSSelectorFromString(toNSString(name));
}

std::optional<ScriptingValue> codeValue(std::uint32_t code) {
  // No enumerator is zero, which is what a method gives that could not read one.
  if (code == 0 || code == missingValue) return std::nullopt;
  return code;
}

std::optional<ScriptingValue> pictureValue(NSImage* picture) {
  if (std::optional<Image> pixels = pixelsOf(picture)) return *std::move(pixels);
  return std::nullopt;
}

std::optional<ScriptingValue> pictureValue(NSData* file) {
  return pictureValue([[NSImage alloc] initWithData:file]);
}

std::optional<ScriptingValue> descriptorValue(NSAppleEventDescriptor* descriptor) {
  switch (descriptorContent(descriptor.descriptorType)) {
    case DescriptorContent::text:
      return toText(descriptor.stringValue);
    case DescriptorContent::enumerator:
      return codeValue(descriptor.enumCodeValue);
    case DescriptorContent::type:
      return codeValue(descriptor.typeCodeValue);
    case DescriptorContent::bytes:
      return pictureValue(descriptor.data);
  }
  return std::nullopt;
}

}  // namespace

MacScriptingObject::MacScriptingObject(SBApplication* application, SBObject* object)
    : application_(application), object_(object) {}

void MacScriptingObject::setTimeout(long ticks) {
  application_.timeout = ticks;
}

bool MacScriptingObject::respondsTo(std::string_view selector) const {
  return [object_ respondsToSelector:selectorOf(selector)];
}

void MacScriptingObject::send(std::string_view selector) {
  if (invoke(selector) != nil) wentWell();
}

std::optional<ScriptingValue> MacScriptingObject::read(std::string_view property) {
  NSInvocation* const invocation = invoke(property);
  return invocation == nil ? std::nullopt : valueOf(invocation);
}

NSInvocation* MacScriptingObject::invoke(std::string_view selector) {
  lastError_.reset();
  const SEL method = selectorOf(selector);
  NSMethodSignature* const signature =
      respondsTo(selector) ? [object_ methodSignatureForSelector:method] : nil;
  if (signature.numberOfArguments != hiddenArguments) {
    lastError_ = "unknown command or property " + std::string(selector);
    return nil;
  }
  if (!application_.running) {
    lastError_ = "it is not running";
    return nil;
  }
  // Not performSelector:, for which every result is an object: these are nothing, objects and
  // integers.
  NSInvocation* const invocation = [NSInvocation invocationWithMethodSignature:signature];
  invocation.selector = method;
  @try {
    [invocation invokeWithTarget:object_];
  } @catch (NSException* exception) {
    lastError_ = toText(exception.name) + ": " + toText(exception.reason);
    return nil;
  }
  return invocation;
}

std::optional<ScriptingValue> MacScriptingObject::valueOf(NSInvocation* invocation) {
  NSMethodSignature* const signature = invocation.methodSignature;
  switch (scriptingReturn(signature.methodReturnType)) {
    case ScriptingReturn::object: {
      // What the method gives is not the caller's, and the invocation does not say so.
      __unsafe_unretained id object = nil;
      [invocation getReturnValue:&object];
      return valueOf(object);
    }
    case ScriptingReturn::number: {
      // In the lowest bytes, as every Mac is little-endian.
      std::uint64_t number = 0;
      if (signature.methodReturnLength > sizeof number) return std::nullopt;
      [invocation getReturnValue:&number];
      return wentWell() ? codeValue(static_cast<std::uint32_t>(number)) : std::nullopt;
    }
    case ScriptingReturn::other:
      break;
  }
  return std::nullopt;
}

std::optional<ScriptingValue> MacScriptingObject::valueOf(id object) {
  // Only references are made without an event: the error of an earlier one is not theirs.
  if ([object isKindOfClass:[SBObject class]]) {
    return std::make_shared<MacScriptingObject>(application_, static_cast<SBObject*>(object));
  }
  if ([object isKindOfClass:[NSArray class]]) {
    const id first = static_cast<NSArray*>(object).firstObject;
    return first == nil ? std::nullopt : valueOf(first);
  }
  if (!wentWell()) return std::nullopt;
  if ([object isKindOfClass:[NSString class]]) return toText(static_cast<NSString*>(object));
  if ([object isKindOfClass:[NSNumber class]]) {
    return codeValue(static_cast<NSNumber*>(object).unsignedIntValue);
  }
  if ([object isKindOfClass:[NSAppleEventDescriptor class]]) {
    return descriptorValue(static_cast<NSAppleEventDescriptor*>(object));
  }
  if ([object isKindOfClass:[NSImage class]]) return pictureValue(static_cast<NSImage*>(object));
  if ([object isKindOfClass:[NSData class]]) return pictureValue(static_cast<NSData*>(object));
  return std::nullopt;
}

bool MacScriptingObject::wentWell() {
  NSError* const error = object_.lastError;
  if (error != nil) lastError_ = toText(error.localizedDescription);
  return error == nil;
}

}  // namespace talmo
