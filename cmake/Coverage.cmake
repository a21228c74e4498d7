# The target `coverage`: runs the tests and writes what lines and branches of the library they reach
# into build/coverage/report: a summary on the terminal, summary.txt, and index.html by file and line.
#
#   cmake --preset coverage && cmake --build build/coverage --target coverage
find_program(GCOVR gcovr REQUIRED)

set(report ${PROJECT_BINARY_DIR}/report)
set(library_folders api fields identity records settings models)
list(TRANSFORM library_folders REPLACE "(.+)" "--filter;${PROJECT_SOURCE_DIR}/\\1/")

add_custom_target(coverage
  COMMAND ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR}
  COMMAND find ${PROJECT_BINARY_DIR} -name "*.gcda" -delete
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${report}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${report}
  COMMAND ${CMAKE_CTEST_COMMAND} --test-dir ${PROJECT_BINARY_DIR} --no-tests=error
          --output-on-failure --progress -j 2
  COMMAND ${GCOVR} --root ${PROJECT_SOURCE_DIR} --object-directory ${PROJECT_BINARY_DIR}
          ${library_folders} --exclude-throw-branches --exclude-unreachable-branches
          --print-summary --txt ${report}/summary.txt --html-details ${report}/index.html
          ${PROJECT_BINARY_DIR}/CMakeFiles/qvslm_objects.dir
  COMMAND_EXPAND_LISTS VERBATIM USES_TERMINAL
  COMMENT "Running the tests and measuring what they reach")
