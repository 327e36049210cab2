# The sources of the macOS backend, from this folder. They are built on a Mac, and read by
# `macos-check` everywhere.
set(talmo_macos_sources
  dispatch/MacDispatch.mm
  dispatch/MacQueue.mm
  dispatch/MacSemaphore.mm
  dispatch/MacTimer.mm
  log/MacLog.mm
  MacBundle.mm
  notifications/MacNotifications.mm
  notifications/TLMObserver.mm
  settings/MacUserDefaults.mm
  Text.mm
)

# What makes the program of it, in its bundle.
set(talmo_macos_program_sources
  AppDelegate.mm
)

# What is linked of the system.
set(talmo_macos_frameworks
  AppKit
  CoreFoundation
  Foundation
)

# Translations that need nothing of the system, and are tested on every system.
set(talmo_macos_translation_sources
  dispatch/QosClass.cpp
  log/LogLine.cpp
)
