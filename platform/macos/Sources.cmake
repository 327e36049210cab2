# The sources of the macOS backend, from this folder. They are built on a Mac, and read by
# `macos-check` everywhere.
set(talmo_macos_sources
  AppDelegate.mm
  applications/MacAppleEvents.mm
  applications/MacScriptingObject.mm
  applications/MacWorkspace.mm
  dispatch/MacDispatch.mm
  dispatch/MacQueue.mm
  dispatch/MacSemaphore.mm
  dispatch/MacTimer.mm
  images/Pixels.mm
  input/MacAccessibility.mm
  input/MacEventTap.mm
  input/MacEventTapPort.mm
  input/MacKeyEvents.mm
  input/MacRunLoop.mm
  input/MacRunLoopSource.mm
  input/MacTapEvent.mm
  log/MacLog.mm
  MacBundle.mm
  notifications/MacNotifications.mm
  notifications/TLMObserver.mm
  settings/MacUserDefaults.mm
  Text.mm
)

# What is linked of the system.
set(talmo_macos_frameworks
  AppKit
  ApplicationServices
  CoreFoundation
  CoreGraphics
  CoreServices
  Foundation
  ScriptingBridge
)

# Translations that need nothing of the system, and are tested on every system.
set(talmo_macos_translation_sources
  applications/DescriptorContent.cpp
  applications/LaunchedInstance.cpp
  applications/ScriptingReturn.cpp
  applications/UnixDate.cpp
  dispatch/QosClass.cpp
  images/PremultipliedPixels.cpp
  log/LogLine.cpp
)
