# What `cmake --install` puts where: the library, its headers, the package files for CMake and
# pkg-config, and the command-line host where it is built.
option(QVSLM_INSTALL "Generate the install rules" ${PROJECT_IS_TOP_LEVEL})
if(NOT QVSLM_INSTALL)
  return()
endif()

install(TARGETS QVSLMTRANSLATE EXPORT QVSLMTRANSLATETargets)
install(FILES api/include/qvslm_layout.h api/include/qvslm_records.h api/include/qvslm_walk.h
              api/include/qvslmtranslate.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

if(TARGET qvslm)
  # The host finds the library beside it wherever the tree is moved to.
  file(RELATIVE_PATH bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(qvslm PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")
  install(TARGETS qvslm)
endif()

# find_package(QVSLMTRANSLATE) gives the target QVSLMTRANSLATE::QVSLMTRANSLATE.
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/QVSLMTRANSLATE)
install(EXPORT QVSLMTRANSLATETargets
        FILE QVSLMTRANSLATEConfig.cmake
        NAMESPACE QVSLMTRANSLATE::
        DESTINATION ${package_folder})
write_basic_package_version_file(QVSLMTRANSLATEConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/QVSLMTRANSLATEConfigVersion.cmake
        DESTINATION ${package_folder})

file(RELATIVE_PATH pkgconfig_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
     ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/qvslmtranslate.pc.in qvslmtranslate.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qvslmtranslate.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(MINGW)
  include(WindowsPackage)
endif()
