# What makes QVSLMTRANSLATE.dll of the library: the names without decoration, the version that the
# Explorer shows, and with MinGW no other DLLs than the system's, import libraries for both worlds,
# and the debug information in a file beside it.
set_target_properties(QVSLMTRANSLATE PROPERTIES PREFIX "")

# The names stand once, in the list for Linux.
file(STRINGS ${exports} exported_names REGEX "^ +(QV|TX)_.*;$")
list(TRANSFORM exported_names REPLACE "^ +(.*);$" "  \\1")
list(JOIN exported_names "\n" exported_names)
set(definition ${PROJECT_BINARY_DIR}/QVSLMTRANSLATE.def)
file(CONFIGURE OUTPUT ${definition} CONTENT "LIBRARY QVSLMTRANSLATE.dll\nEXPORTS\n@exported_names@\n"
     @ONLY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${exports})

enable_language(RC)
string(REPLACE "." "," version_numbers ${PROJECT_VERSION})
set(resource_type VFT_DLL)
set(resource_name QVSLMTRANSLATE)
set(resource_file QVSLMTRANSLATE.dll)
set(resource_text "Reads the measurement files of a family of sound level meters")
configure_file(${PROJECT_SOURCE_DIR}/cmake/windows/version.rc.in
               ${PROJECT_BINARY_DIR}/version.rc @ONLY)
target_sources(QVSLMTRANSLATE PRIVATE ${definition} ${PROJECT_BINARY_DIR}/version.rc)

if(MINGW)
  # Without the time of the build the same sources give the same file.
  target_link_options(QVSLMTRANSLATE PRIVATE -static -Wl,--no-insert-timestamp)
  target_compile_options(qvslm_objects PRIVATE -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=)

  # keep_debug_information_beside(TARGET): moves it to a file beside, with .debug behind its name.
  set(without_time ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0 ${CMAKE_OBJCOPY})
  function(keep_debug_information_beside target)
    set(file $<TARGET_FILE_NAME:${target}>)
    add_custom_command(TARGET ${target} POST_BUILD
      COMMAND ${without_time} --only-keep-debug ${file} ${file}.debug
      COMMAND ${without_time} --strip-unneeded --add-gnu-debuglink=${file}.debug ${file}
      WORKING_DIRECTORY $<TARGET_FILE_DIR:${target}> VERBATIM)
  endfunction()
  keep_debug_information_beside(QVSLMTRANSLATE)

  # The import library that the linkers of MSVC and LLVM read: the short form, as their own tools
  # write it.
  find_program(LLVM_DLLTOOL NAMES llvm-dlltool REQUIRED)
  set(machine $<IF:$<EQUAL:${CMAKE_SIZEOF_VOID_P},8>,i386:x86-64,i386>)
  add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/QVSLMTRANSLATE.lib
    COMMAND ${LLVM_DLLTOOL} -m ${machine} -d ${definition}
            -l ${PROJECT_BINARY_DIR}/QVSLMTRANSLATE.lib
    DEPENDS ${definition} VERBATIM)
  add_custom_target(import_library ALL DEPENDS ${PROJECT_BINARY_DIR}/QVSLMTRANSLATE.lib)
endif()
