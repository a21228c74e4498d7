# What makes qvslm.exe of the host: one file, with the library and the time zones in it, the code page
# UTF-8 by its manifest, and the version that the Explorer shows.
target_link_libraries(qvslm PRIVATE QVSLMTRANSLATE_static carried_zones)

set(resource_type VFT_APP)
set(resource_name qvslm)
set(resource_file qvslm.exe)
set(resource_text "Shows the measurement files of a family of sound level meters")
configure_file(${PROJECT_SOURCE_DIR}/cmake/windows/version.rc.in qvslm_version.rc @ONLY)
file(CONFIGURE OUTPUT qvslm.rc @ONLY CONTENT
     "#include \"qvslm_version.rc\"\n1 24 \"${PROJECT_SOURCE_DIR}/cmake/windows/qvslm.manifest\"\n")
target_sources(qvslm PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/qvslm.rc)
set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/qvslm.rc PROPERTIES OBJECT_DEPENDS
  "${PROJECT_SOURCE_DIR}/cmake/windows/qvslm.manifest;${CMAKE_CURRENT_BINARY_DIR}/qvslm_version.rc")

if(MINGW)
  target_link_options(qvslm PRIVATE -static -Wl,--no-insert-timestamp)
  target_compile_options(qvslm PRIVATE -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)
  keep_debug_information_beside(qvslm)
endif()
