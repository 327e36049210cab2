# TALMO_SANITIZE names the sanitizers of the build, separated by commas; empty for none.
set(TALMO_SANITIZE "" CACHE STRING "Sanitizers, for example address,undefined or thread")
if(TALMO_SANITIZE)
  add_compile_options(-fsanitize=${TALMO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${TALMO_SANITIZE})
endif()
