# The library in two forms from one set of objects: the shared library with its twelve names, and a
# static one, through which tests also reach what no export reaches.
add_library(qvslm_objects OBJECT ${LIBRARY_SOURCES})
set(public_headers ${PROJECT_SOURCE_DIR}/api/include)
target_include_directories(qvslm_objects PRIVATE ${PROJECT_SOURCE_DIR} ${public_headers})
set_target_properties(qvslm_objects PROPERTIES CXX_VISIBILITY_PRESET hidden
                                               VISIBILITY_INLINES_HIDDEN ON)
if(WIN32)
  # What the DLL exports is said by its list alone, so that the objects serve both libraries.
  target_compile_definitions(qvslm_objects PRIVATE QVSLMTRANSLATE_STATIC)
endif()

add_library(QVSLMTRANSLATE SHARED $<TARGET_OBJECTS:qvslm_objects>)
add_library(QVSLMTRANSLATE::QVSLMTRANSLATE ALIAS QVSLMTRANSLATE)
set_target_properties(QVSLMTRANSLATE PROPERTIES VERSION ${PROJECT_VERSION}
                                                SOVERSION ${PROJECT_VERSION_MAJOR})
target_include_directories(QVSLMTRANSLATE INTERFACE
  $<BUILD_INTERFACE:${public_headers}>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

add_library(QVSLMTRANSLATE_static STATIC EXCLUDE_FROM_ALL $<TARGET_OBJECTS:qvslm_objects>)
add_library(QVSLMTRANSLATE::QVSLMTRANSLATE_static ALIAS QVSLMTRANSLATE_static)
target_include_directories(QVSLMTRANSLATE_static INTERFACE
  ${public_headers} ${PROJECT_SOURCE_DIR}/api/front_end)
target_compile_definitions(QVSLMTRANSLATE_static INTERFACE QVSLMTRANSLATE_STATIC)

add_library(qvslm_internals INTERFACE)
target_include_directories(qvslm_internals INTERFACE ${PROJECT_SOURCE_DIR})
target_link_libraries(qvslm_internals INTERFACE QVSLMTRANSLATE_static)

set(exports ${PROJECT_SOURCE_DIR}/cmake/exports.map)
if(WIN32)
  include(WindowsLibrary)
elseif(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  target_link_options(QVSLMTRANSLATE PRIVATE -Wl,--version-script=${exports} -Wl,--no-undefined)
  if(QVSLM_SANITIZE)
    # The sanitizers' runtime stands in the executable.
    get_target_property(options QVSLMTRANSLATE LINK_OPTIONS)
    list(REMOVE_ITEM options -Wl,--no-undefined)
    set_target_properties(QVSLMTRANSLATE PROPERTIES LINK_OPTIONS "${options}")
  endif()
  set_target_properties(QVSLMTRANSLATE PROPERTIES LINK_DEPENDS ${exports})
endif()
