# The zip for Windows: the DLLs of both widths with their import libraries and debug information,
# the headers, qvslm.exe, README.txt, and the licence where there is one. It is packed from the
# build for x64; that for x86 stands beside it.
#
#   cmake --build --preset windows-x86 && cmake --build --preset windows-x64 --target package
string(REGEX REPLACE "x64$" "x86" x86_build ${PROJECT_BINARY_DIR})
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(width x64)
else()
  set(width x86)
endif()
install(TARGETS QVSLMTRANSLATE
        RUNTIME DESTINATION ${width} COMPONENT zip EXCLUDE_FROM_ALL
        ARCHIVE DESTINATION ${width} COMPONENT zip EXCLUDE_FROM_ALL)
install(FILES ${PROJECT_BINARY_DIR}/QVSLMTRANSLATE.lib ${PROJECT_BINARY_DIR}/QVSLMTRANSLATE.dll.debug
        DESTINATION ${width} COMPONENT zip EXCLUDE_FROM_ALL)
if(width STREQUAL "x86")
  return()
endif()

if(TARGET qvslm)
  install(TARGETS qvslm RUNTIME DESTINATION . COMPONENT zip EXCLUDE_FROM_ALL)
endif()
install(DIRECTORY api/include/ DESTINATION include COMPONENT zip EXCLUDE_FROM_ALL)
configure_file(cmake/windows/README.txt.in README.txt @ONLY NEWLINE_STYLE WIN32)
install(FILES ${PROJECT_BINARY_DIR}/README.txt DESTINATION . COMPONENT zip EXCLUDE_FROM_ALL)
install(FILES docs/host.md docs/records.md docs/windows.md DESTINATION docs COMPONENT zip EXCLUDE_FROM_ALL)
install(FILES LICENSE DESTINATION . COMPONENT zip EXCLUDE_FROM_ALL OPTIONAL)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME QVSLMTRANSLATE-${PROJECT_VERSION}-windows)
set(CPACK_INSTALL_CMAKE_PROJECTS "${PROJECT_BINARY_DIR};QVSLMTRANSLATE;zip;/"
                                 "${x86_build};QVSLMTRANSLATE;zip;/")
include(CPack)
