# What the presets switch, and the folder that the program is delivered in.

set(ZORVAND_SANITIZE "" CACHE STRING "Sanitizers for everything, as address,undefined; empty: none")
option(ZORVAND_COVERAGE "Count which lines run (gcov)" OFF)
option(ZORVAND_FUZZ "Build the fuzz targets (needs clang)" OFF)
set(ZORVAND_PROGRAM_FOLDER "${CMAKE_BINARY_DIR}/zorvand" CACHE PATH
  "Where the program and its Resources are put")

# g++ 12 takes the inlined sum of a literal and a string for an overlapping copy (GCC bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  add_compile_options(-Wno-restrict)
endif()

if(ZORVAND_SANITIZE)
  add_compile_options(-fsanitize=${ZORVAND_SANITIZE} -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wno-maybe-uninitialized)  # g++ can't see through its own checks
  endif()
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
  add_link_options(-fsanitize=${ZORVAND_SANITIZE})
endif()

if(ZORVAND_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
endif()

if(ZORVAND_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "The fuzz targets need clang: cmake --preset fuzz")
  endif()
  # Warnings are the release's and clang-tidy's matter; clang's own groups differ from g++'s.
  add_compile_options(-fsanitize=fuzzer-no-link -w)
endif()

# Puts the program `target` and, beside it, the delivered files of Resources/ into one folder. What
# the program itself writes there (logs, settings, a project) stays.
function(zorvand_program_folder target)
  set_target_properties(${target} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "$<1:${ZORVAND_PROGRAM_FOLDER}>")
  file(GLOB_RECURSE delivered CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}
    ${PROJECT_SOURCE_DIR}/Resources/*)
  set(copies)
  foreach(file ${delivered})
    set(copy "${ZORVAND_PROGRAM_FOLDER}/${file}")
    add_custom_command(OUTPUT "${copy}"
      COMMAND ${CMAKE_COMMAND} -E copy "${PROJECT_SOURCE_DIR}/${file}" "${copy}"
      DEPENDS "${PROJECT_SOURCE_DIR}/${file}" VERBATIM)
    list(APPEND copies "${copy}")
  endforeach()
  add_custom_target(${target}_resources DEPENDS ${copies})
  add_dependencies(${target} ${target}_resources)
endfunction()

# cmake --build --preset tidy
add_custom_target(tidy COMMAND ${PROJECT_SOURCE_DIR}/tools/tidy.sh USES_TERMINAL VERBATIM)
