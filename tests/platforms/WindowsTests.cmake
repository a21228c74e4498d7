# The tests of the exports as programs for Windows, with GoogleTest built from Debian's sources:
# export_tests drives the DLL by the clock of UTC; zone_tests, the tests that want other zones, gets
# them by tables, for which it is linked with the static library. Neither is built by default.
#
#   cmake --build --preset windows-x64 --target windows_tests
find_path(QVSLM_GOOGLETEST googlemock/CMakeLists.txt PATHS /usr/src/googletest NO_DEFAULT_PATH
          NO_CMAKE_FIND_ROOT_PATH)
if(NOT QVSLM_GOOGLETEST)
  return()
endif()

# What tests need no speed and no debugger for.
add_compile_options(-O0 -g0)
add_link_options(-static)
set(gtest_force_shared_crt ON CACHE INTERNAL "")
set(INSTALL_GTEST OFF CACHE INTERNAL "")
add_subdirectory(${QVSLM_GOOGLETEST} googletest EXCLUDE_FROM_ALL)
add_subdirectory(${PROJECT_SOURCE_DIR}/samples samples EXCLUDE_FROM_ALL)

set(tests ${PROJECT_SOURCE_DIR}/tests)
file(GLOB test_sources CONFIGURE_DEPENDS
     ${tests}/api/*_test.cpp ${tests}/fields/*_test.cpp ${tests}/identity/*_test.cpp
     ${tests}/models/*_test.cpp ${tests}/records/*_test.cpp ${tests}/robustness/*_test.cpp
     ${tests}/samples/*_test.cpp ${tests}/settings/*_test.cpp)
# Of file_path_test the names of files hold separators.
list(FILTER test_sources EXCLUDE REGEX "_internal_test.cpp$|/file_path_test.cpp$")
set(zone_sources)
foreach(source IN LISTS test_sources)
  file(STRINGS ${source} posix REGEX "#include (<(sys/.*|unistd.h)>|\"support/(memory|sparse)_file.h\")")
  file(STRINGS ${source} zone REGEX "scoped_zone.h")
  if(posix)
    # Files in memory, sparse ones, links, limits of the process: POSIX has them.
    list(REMOVE_ITEM test_sources ${source})
  elseif(zone)
    list(REMOVE_ITEM test_sources ${source})
    list(APPEND zone_sources ${source})
  endif()
endforeach()

add_library(windows_test_support STATIC EXCLUDE_FROM_ALL
  ${tests}/run_tests.cpp
  ${tests}/support/guarded_buffer.cpp
  ${tests}/support/system_calls_windows.cpp
  ${tests}/support/temp_file.cpp
  ${tests}/support/translation.cpp)
# The calls of the DLL are reached without the declaration of their import, too.
target_compile_definitions(windows_test_support PUBLIC QVSLMTRANSLATE_STATIC)
target_include_directories(windows_test_support PUBLIC ${PROJECT_SOURCE_DIR}/api/include ${tests})
target_link_libraries(windows_test_support PUBLIC sample_files record_fields GTest::gtest GTest::gmock)
target_precompile_headers(windows_test_support PRIVATE
                          <gmock/gmock.h> <gtest/gtest.h> <string> <vector>)

add_library(windows_walk_in_c OBJECT EXCLUDE_FROM_ALL ${tests}/api/walk_in_c.c)
target_link_libraries(windows_walk_in_c PRIVATE QVSLMTRANSLATE)
add_executable(export_tests EXCLUDE_FROM_ALL ${test_sources} ${tests}/support/zone_by_windows.cpp)
target_link_libraries(export_tests PRIVATE windows_test_support QVSLMTRANSLATE windows_walk_in_c)
add_executable(zone_tests EXCLUDE_FROM_ALL ${zone_sources} ${tests}/support/zone_by_table.cpp)
target_link_libraries(zone_tests PRIVATE windows_test_support QVSLMTRANSLATE_static zone_info)
foreach(program export_tests zone_tests)
  target_precompile_headers(${program} REUSE_FROM windows_test_support)
endforeach()
add_custom_target(windows_tests DEPENDS export_tests zone_tests)
