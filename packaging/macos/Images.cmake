# Draws the images of the bundle from the vectors that Linux shows as they are:
#
#     cmake -D RSVG_CONVERT=... -D SOURCE=resources/images -D OUTPUT=... -P Images.cmake
#
# OUTPUT gets NAME.png and NAME@2x.png, as NSImage looks for them by name, and AppIcon.iconset, from
# which iconutil makes the icon.
cmake_minimum_required(VERSION 3.25)

function(draw vectors side picture)
  execute_process(
    COMMAND ${RSVG_CONVERT} --width ${side} --height ${side} --output ${picture} ${vectors}
    COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# draw_pair(<vectors> <side in points> <path without extension>)
function(draw_pair vectors side path)
  math(EXPR twice "2 * ${side}")
  draw(${vectors} ${side} ${path}.png)
  draw(${vectors} ${twice} ${path}@2x.png)
endfunction()

file(MAKE_DIRECTORY ${OUTPUT}/AppIcon.iconset)
# As large as the status item shows it.
draw_pair(${SOURCE}/MenuBarIcon.svg 18 ${OUTPUT}/MenuBarIcon)
foreach(name IN ITEMS SoundCloudIcon YouTubeIcon)
  draw_pair(${SOURCE}/${name}.svg 64 ${OUTPUT}/${name})
endforeach()

# Beside other icons the body has 824 of 1024 parts of the width (Apple's template for icons); here it
# has 456 of 512. A wider view box makes that room.
file(READ ${SOURCE}/AppIcon.svg icon)
string(REPLACE [[viewBox="0 0 512 512"]] [[viewBox="-27.3 -27.3 566.6 566.6"]] framed "${icon}")
if(framed STREQUAL icon)
  message(FATAL_ERROR "AppIcon.svg has another view box than expected")
endif()
file(WRITE ${OUTPUT}/AppIcon.svg "${framed}")
foreach(side IN ITEMS 16 32 128 256 512)
  draw_pair(${OUTPUT}/AppIcon.svg ${side} ${OUTPUT}/AppIcon.iconset/icon_${side}x${side})
endforeach()
