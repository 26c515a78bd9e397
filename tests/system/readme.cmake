# Writes the C++ block of README.md to a source file, so that the build compiles what newcomers copy.
file(READ ${PROJECT_SOURCE_DIR}/README.md readme)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/README.md)
if(NOT readme MATCHES "```cpp\n([^`]*)```")
    message(FATAL_ERROR "README.md has no block of C++")
endif()
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/readme.cpp CONTENT "${CMAKE_MATCH_1}" @ONLY)
add_library(readme_example OBJECT ${CMAKE_CURRENT_BINARY_DIR}/readme.cpp)
target_link_libraries(readme_example PRIVATE quadrelbll)
