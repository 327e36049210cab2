# The media session and what it is made of, for the backend and for the helper's module, which
# compiles them itself. Sets talmo_media_session_sources and talmo_media_session_libraries.
pkg_check_modules(systemd REQUIRED IMPORTED_TARGET libsystemd)
pkg_check_modules(uriparser REQUIRED IMPORTED_TARGET liburiparser)
find_package(utf8cpp REQUIRED)

set(talmo_media_session_sources
  applications/BusConnection.cpp
  applications/LinuxApplications.cpp
  applications/MprisNames.cpp
  applications/ProcessTable.cpp
  applications/SessionBus.cpp
  mediasession/Artworks.cpp
  mediasession/MprisSessions.cpp
  mediasession/MprisSignals.cpp
  mediasession/PlayerIdentity.cpp
  mediasession/PlayerProperties.cpp
  mediasession/SessionOrder.cpp
  mediasession/SessionRecord.cpp
  mediasession/UrlText.cpp)
list(TRANSFORM talmo_media_session_sources PREPEND ${PROJECT_SOURCE_DIR}/platform/linux/)
set(talmo_media_session_libraries
  PkgConfig::systemd PkgConfig::uriparser absl::strings utf8cpp)
