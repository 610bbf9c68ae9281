# The handbook as a page of HTML, where the program looks for it. Where Python's Markdown is missing
# there is no handbook, and the program says so.
cmake_path(SET HANDBOOK_FOLDER NORMALIZE ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${HANDBOOK_FROM_PROGRAM})

# The packaged library belongs to the packaged Python.
find_program(HANDBOOK_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH)
if(HANDBOOK_PYTHON)
  execute_process(COMMAND ${HANDBOOK_PYTHON} -c "import markdown" RESULT_VARIABLE NO_MARKDOWN ERROR_QUIET)
endif()
if(NOT HANDBOOK_PYTHON OR NO_MARKDOWN)
  message(STATUS "No handbook and no packages: python3-markdown is not installed")
  return()
endif()

set(HANDBOOK_PARTS
  ${CMAKE_SOURCE_DIR}/tools/handbook/make_handbook.py
  ${CMAKE_SOURCE_DIR}/docs/handleiding.md
  ${CMAKE_SOURCE_DIR}/tools/handbook/handleiding.css)
add_custom_command(OUTPUT ${HANDBOOK_FOLDER}/index.html
  COMMAND ${HANDBOOK_PYTHON} ${HANDBOOK_PARTS} ${HANDBOOK_FOLDER}
  DEPENDS ${HANDBOOK_PARTS} DEPFILE ${HANDBOOK_FOLDER}.d VERBATIM)
add_custom_target(handbook ALL DEPENDS ${HANDBOOK_FOLDER}/index.html)
