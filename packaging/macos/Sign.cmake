# Signs the bundle, from the inside outwards, for a signature covers those below it:
#
#     cmake -D CODESIGN=... -D IDENTITY=... -D APP=Talmo.app -P Sign.cmake
#
# IDENTITY is the name of a certificate, or `-` for a signature by nobody (ad hoc), which no time
# stamp goes with.
cmake_minimum_required(VERSION 3.25)

set(options --force --sign ${IDENTITY} --options runtime)
if(IDENTITY STREQUAL "-")
  list(APPEND options --timestamp=none)
  set(entitlements ${CMAKE_CURRENT_LIST_DIR}/TalmoAdHoc.entitlements)
else()
  list(APPEND options --timestamp)
  set(entitlements ${CMAKE_CURRENT_LIST_DIR}/Talmo.entitlements)
endif()

# sign(<path> <more options>...)
function(sign path)
  execute_process(COMMAND ${CODESIGN} ${options} ${ARGN} ${path} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(frameworks ${APP}/Contents/Frameworks)
if(EXISTS ${frameworks}/Sparkle.framework)
  # The parts that Sparkle's documentation names; the downloader has entitlements of its own.
  set(sparkle ${frameworks}/Sparkle.framework/Versions/B)
  sign(${sparkle}/XPCServices/Installer.xpc)
  sign(${sparkle}/XPCServices/Downloader.xpc --preserve-metadata=entitlements)
  sign(${sparkle}/Autoupdate)
  sign(${sparkle}/Updater.app)
  sign(${frameworks}/Sparkle.framework)
endif()
sign(${frameworks}/MediaRemoteAdapter.framework)
sign(${APP} --entitlements ${entitlements})
