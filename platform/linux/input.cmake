# Media keys, key strokes and the X connection.
target_sources(talmo_linux PRIVATE
  ${CMAKE_CURRENT_SOURCE_DIR}/KeyboardRelay.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxEventTap.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxEventTapPort.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxKeyEvents.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/LinuxRunLoop.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/MediaKeyGrabs.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/XConnection.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/XKeymap.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/XProcessWindow.cpp)
