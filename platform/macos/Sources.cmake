# The sources of the macOS backend, from this folder. They are built on a Mac, and read by
# `macos-check` everywhere.
set(talmo_macos_sources
  AppDelegate.mm
  applications/MacAppleEvents.mm
  applications/MacScriptingObject.mm
  applications/MacWorkspace.mm
  audio/MacAudioObjects.mm
  dispatch/MacDispatch.mm
  dispatch/MacQueue.mm
  dispatch/MacSemaphore.mm
  dispatch/MacTimer.mm
  images/MacImageDecoder.mm
  images/Pixels.mm
  input/MacAccessibility.mm
  input/MacEventTap.mm
  input/MacEventTapPort.mm
  input/MacKeyEvents.mm
  input/MacRunLoop.mm
  input/MacRunLoopSource.mm
  input/MacTapEvent.mm
  log/MacLog.mm
  login/MacLoginItem.mm
  MacBundle.mm
  mediasession/MacMediaRemote.mm
  mediasession/MediaRemoteFramework.mm
  network/MacNetwork.mm
  network/TLMSessionDelegate.mm
  notifications/MacNotifications.mm
  notifications/TLMObserver.mm
  processes/MacChild.mm
  processes/MacChildProcess.mm
  processes/MacChildProcesses.mm
  processes/MacOutputPipe.mm
  settings/MacUserDefaults.mm
  Text.mm
)

# With Sparkle, and without: one of the two is built.
set(talmo_macos_sparkle_sources
  updates/SparkleUpdate.mm
)
set(talmo_macos_sparkleless_sources
  updates/NoSoftwareUpdate.cpp
)

# What the now-playing helper's framework is built from, beside the sources of `adapter`.
set(talmo_macos_helper_sources
  mediasession/ElapsedTime.cpp
  mediasession/MediaRemoteFramework.mm
)

# What is linked of the system.
set(talmo_macos_frameworks
  AppKit
  ApplicationServices
  CoreAudio
  CoreFoundation
  CoreGraphics
  CoreServices
  Foundation
  ImageIO
  ScriptingBridge
  ServiceManagement
)

# Translations that need nothing of the system, and are tested on every system.
set(talmo_macos_translation_sources
  applications/DescriptorContent.cpp
  applications/LaunchedInstance.cpp
  applications/ScriptingReturn.cpp
  applications/UnixDate.cpp
  dispatch/QosClass.cpp
  images/ImageFile.cpp
  images/PremultipliedPixels.cpp
  log/LogLine.cpp
  mediasession/ElapsedTime.cpp
  network/HttpsTransfer.cpp
  network/HttpsUrl.cpp
  processes/ChildEnding.cpp
)
