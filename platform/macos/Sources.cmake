# The sources of the macOS backend, from this folder. They are built on a Mac, and read by
# `macos-check` everywhere.
set(talmo_macos_sources
  dispatch/MacDispatch.mm
  dispatch/MacQueue.mm
  dispatch/MacSemaphore.mm
  dispatch/MacTimer.mm
  interface/Events.mm
  interface/LetGo.mm
  interface/MacEventMonitors.mm
  interface/MacPanel.mm
  interface/MacPanels.mm
  interface/MacStatusBar.mm
  interface/MacStatusButton.mm
  interface/MacStatusItem.mm
  interface/MacWindow.mm
  interface/MacWindows.mm
  interface/Menus.mm
  interface/TalmoPanel.mm
  interface/TLMWindow.mm
  interface/view/FirstMouseHostingView.mm
  interface/view/Grounds.mm
  interface/view/Motion.mm
  interface/view/Palette.mm
  interface/view/PartFactory.mm
  interface/view/PartList.mm
  interface/view/Pictures.mm
  interface/view/TLMButtonPart.mm
  interface/view/TLMEqualizerPart.mm
  interface/view/TLMFlippedStackView.mm
  interface/view/TLMHostingView.mm
  interface/view/TLMPicturePart.mm
  interface/view/TLMSectionPart.mm
  interface/view/TLMSegmentPart.mm
  interface/view/TLMStackPart.mm
  interface/view/TLMSymbolPart.mm
  interface/view/TLMTextPart.mm
  interface/view/TLMTogglePart.mm
  Text.mm
)

# What is linked of the system.
set(talmo_macos_frameworks
  AppKit
  CoreFoundation
  CoreGraphics
  Foundation
  QuartzCore
)

# Translations that need nothing of the system, and are tested on every system.
set(talmo_macos_translation_sources
  dispatch/QosClass.cpp
  interface/EventTranslation.cpp
  interface/view/EqualizerBar.cpp
  interface/view/KeptParts.cpp
  interface/view/LinePlan.cpp
  interface/view/SpokenText.cpp
  interface/view/StackLook.cpp
  interface/view/SymbolLook.cpp
  interface/view/TextLook.cpp
)
