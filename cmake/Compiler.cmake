# What every target of the project is compiled with: all warnings on and fatal, sanitizers where asked for.

function(drukkeuring_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wconversion -Wsign-conversion -Wshadow -Werror)
  # A false alarm of GCC 12 on the assignment of a short literal to a std::string (GCC bug 105651).
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  # The one file of the Windows program holds no function that nobody calls.
  if(MINGW)
    target_compile_options(${target} PRIVATE -ffunction-sections -fdata-sections)
  endif()
endfunction()

function(drukkeuring_compile_options target)
  drukkeuring_warnings(${target})
  if(DRUKKEURING_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                           -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

# What a test, or a tool that plays tests, is compiled with. The sanitizers watch the code under test, not the test: with
# them the templates of the test framework take more than twice as long to compile. Nor does an optimised test gain.
function(drukkeuring_test_options target)
  drukkeuring_warnings(${target})
  target_compile_options(${target} PRIVATE -O0)
  if(DRUKKEURING_SANITIZE)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

# A library of one folder of src/. Headers are named from src/ on ("payment/Iban.h"), so a reader sees the
# folder that a name comes from.
function(drukkeuring_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_DEPENDS})
  drukkeuring_compile_options(${name})
endfunction()
