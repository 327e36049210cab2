# Packs the bundle, beside a link to the folder that it is to be dragged to:
#
#     cmake -D HDIUTIL=... -D OTOOL=... -D APP=Talmo.app -D STAGE=... -D IMAGE=Talmo.dmg
#           -P DiskImage.cmake
#
# Refuses a bundle that would not run on another Mac, because it is linked with libraries that only
# this one has. STAGE is a folder that is made anew.
cmake_minimum_required(VERSION 3.25)

set(programs ${APP}/Contents/MacOS/Talmo
  ${APP}/Contents/Frameworks/MediaRemoteAdapter.framework/MediaRemoteAdapter)
foreach(program IN LISTS programs)
  execute_process(COMMAND ${OTOOL} -L ${program} OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
  # A library stands on a line of its own, after a tab; for each processor a line names the program.
  string(REGEX MATCHALL "\n\t[^\n]* \\(compatibility" lines "${listing}")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "\n\t(.*) \\(compatibility" "\\1" library "${line}")
    if(NOT library MATCHES "^(/usr/lib/|/System/Library/|@rpath/)")
      message(FATAL_ERROR "${program} needs ${library}, which other Macs do not have. \
docs/macos.md says how to build an application that runs everywhere")
    endif()
  endforeach()
endforeach()

file(REMOVE_RECURSE ${STAGE})
file(COPY ${APP} DESTINATION ${STAGE})
file(CREATE_LINK /Applications ${STAGE}/Applications SYMBOLIC)
execute_process(
  COMMAND ${HDIUTIL} create -volname Talmo -srcfolder ${STAGE} -format UDZO -ov ${IMAGE}
  COMMAND_ERROR_IS_FATAL ANY)
