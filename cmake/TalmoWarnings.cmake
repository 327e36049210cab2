# What every target of ours is compiled with: linked as `talmo_warnings`.
add_library(talmo_warnings INTERFACE)
target_compile_options(talmo_warnings INTERFACE
  # Pedantic of C++ only: Objective-C is an extension of it to begin with.
  -Wall -Wextra $<$<COMPILE_LANGUAGE:CXX>:-Wpedantic> -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
  -Wno-missing-field-initializers)

option(TALMO_WARNINGS_AS_ERRORS "Let a warning fail the build" ON)
if(TALMO_WARNINGS_AS_ERRORS)
  target_compile_options(talmo_warnings INTERFACE -Werror)
endif()

option(TALMO_THREAD_SAFETY_ANALYSIS "Check the lock annotations (clang)" OFF)
if(TALMO_THREAD_SAFETY_ANALYSIS)
  target_compile_options(talmo_warnings INTERFACE -Wthread-safety -Werror=thread-safety)
endif()
