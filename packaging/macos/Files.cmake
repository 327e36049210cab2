# What the bundle is made of that every system can make, for the bundle and for its tests.
set(TALMO_BUNDLE_IDENTIFIER nl.brelm.Talmo)
set(TALMO_MACOS_MINIMUM 14.0)
set(TALMO_COPYRIGHT "Copyright © 2026 The Talmo authors")

# Adds a text to the information dictionary, unless it is empty.
macro(talmo_add_update_entry key value)
  if(NOT "${value}" STREQUAL "")
    string(REPLACE "&" "&amp;" escaped "${value}")
    string(REPLACE "<" "&lt;" escaped "${escaped}")
    string(APPEND TALMO_UPDATE_ENTRIES "\n  <key>${key}</key>\n  <string>${escaped}</string>")
  endif()
endmacro()

# talmo_macos_property_lists(<folder> <address of the update feed> <public key of the updates>)
#
# Writes Info.plist and MediaRemoteAdapter-Info.plist to the folder. Without a feed there are no
# updates.
function(talmo_macos_property_lists folder feed key)
  set(TALMO_UPDATE_ENTRIES "")
  talmo_add_update_entry(SUFeedURL "${feed}")
  talmo_add_update_entry(SUPublicEDKey "${key}")
  foreach(name IN ITEMS Info MediaRemoteAdapter-Info)
    configure_file(${PROJECT_SOURCE_DIR}/packaging/macos/${name}.plist.in ${folder}/${name}.plist
      @ONLY)
  endforeach()
endfunction()

# talmo_macos_images(<folder> <variable>)
#
# Draws the images into the folder. The variable gets the paths of those that go into the bundle as
# they are; the icon's pictures are in AppIcon.iconset.
function(talmo_macos_images folder variable)
  find_program(TALMO_RSVG_CONVERT rsvg-convert REQUIRED)
  set(vectors ${PROJECT_SOURCE_DIR}/resources/images)
  set(images)
  set(sources ${vectors}/AppIcon.svg)
  foreach(name IN ITEMS MenuBarIcon SoundCloudIcon YouTubeIcon)
    list(APPEND images ${folder}/${name}.png ${folder}/${name}@2x.png)
    list(APPEND sources ${vectors}/${name}.svg)
  endforeach()
  set(iconset)
  foreach(side IN ITEMS 16 32 128 256 512)
    set(icon ${folder}/AppIcon.iconset/icon_${side}x${side})
    list(APPEND iconset ${icon}.png ${icon}@2x.png)
  endforeach()
  set(script ${PROJECT_SOURCE_DIR}/packaging/macos/Images.cmake)
  add_custom_command(OUTPUT ${images} ${iconset}
    COMMAND ${CMAKE_COMMAND} -D RSVG_CONVERT=${TALMO_RSVG_CONVERT} -D SOURCE=${vectors}
      -D OUTPUT=${folder} -P ${script}
    DEPENDS ${script} ${sources}
    COMMENT "Drawing the images of the bundle"
    VERBATIM)
  set(${variable} ${images} PARENT_SCOPE)
endfunction()
