# Media keys, key strokes and the X connection.
target_sources(talmo_linux PRIVATE
  ${CMAKE_CURRENT_SOURCE_DIR}/XConnection.cpp
  ${CMAKE_CURRENT_SOURCE_DIR}/XKeymap.cpp)
