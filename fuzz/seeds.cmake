# SPDX-FileCopyrightText: the quadrelbll authors
# SPDX-License-Identifier: MIT

# Writes the first inputs of each fuzz target: an ordinary program.
add_executable(fuzz_seeds
    ${CMAKE_CURRENT_LIST_DIR}/fuzz_seeds.cpp ${PROJECT_SOURCE_DIR}/tests/support/memorycontents.cpp)
target_include_directories(fuzz_seeds PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
target_link_libraries(fuzz_seeds PRIVATE quadreldocument quadrelunit quadrelbll_static)
set_target_properties(fuzz_seeds PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/fuzz)
