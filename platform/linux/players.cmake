# Apple events over MPRIS, the workspace, and the table of applications.
target_sources(talmo_linux PRIVATE
  ${CMAKE_CURRENT_SOURCE_DIR}/DesktopEntry.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/DesktopLauncher.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxAppleEvents.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxApplications.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxScriptingObject.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxWindows.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxWorkspace.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/MprisNames.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/ProcessTable.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/RecentlyUsed.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/SessionBus.cpp)
