# What is installed besides programs and libraries, and the Debian packages made of it.
# Two components: "runtime" is what users need, "development" is what hosts of the tool build with.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/VeskHDR")
configure_package_config_file(cmake/VeskHDRConfig.cmake.in "${CMAKE_BINARY_DIR}/VeskHDRConfig.cmake"
  INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${CMAKE_BINARY_DIR}/VeskHDRConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/VeskHDRConfig.cmake" "${CMAKE_BINARY_DIR}/VeskHDRConfigVersion.cmake"
  DESTINATION "${package_dir}" COMPONENT development)
install(EXPORT VeskHDRTargets NAMESPACE Vesk:: DESTINATION "${package_dir}" COMPONENT development)

set(document_dir "${CMAKE_INSTALL_DATADIR}/doc/vesk-hdr")
install(FILES docs/man/vesk.1 DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT runtime)
install(FILES completions/veskhdr
  DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT runtime)
install(FILES completions/_veskhdr
  DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions" COMPONENT runtime)
install(FILES completions/veskhdr.fish
  DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d" COMPONENT runtime)
install(FILES README.md CHANGELOG.md DESTINATION "${document_dir}" COMPONENT runtime)
install(FILES LICENSE DESTINATION "${document_dir}" RENAME copyright COMPONENT runtime)
install(DIRECTORY docs DESTINATION "${document_dir}" COMPONENT runtime PATTERN man EXCLUDE)
install(PROGRAMS examples/batch/merge-bracket examples/batch/merge-brackets.sbatch
  DESTINATION "${document_dir}/examples/batch" COMPONENT runtime)
install(DIRECTORY examples/embedding DESTINATION "${document_dir}/examples" COMPONENT development)

set(CPACK_PACKAGE_NAME vesk-hdr)
set(CPACK_PACKAGE_VENDOR "Vesk HDR developers")
set(CPACK_PACKAGE_CONTACT "Vesk HDR developers <vesk-hdr@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "merge bracketed photographs of one scene")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
  "Vesk HDR aligns two or more photographs of one scene, taken at different exposures, and merges them into one well-exposed picture. The package holds a small photo editor (vesk) and a program for scripts and batches (veskhdr).")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "Headers and the CMake package of the Merge to HDR tool, for programs that embed it.")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME vesk-hdr)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION graphics)
# Qt finds these at run time: nothing links them.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "qt6-image-formats-plugins, libqt6svg6")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS qt6-translations-l10n)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SUGGESTS "jq, parallel")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME vesk-hdr-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "vesk-hdr (= ${PROJECT_VERSION}), qt6-base-dev (>= 6.4), ocl-icd-opencl-dev | opencl-dev")
include(CPack)
