# What is installed besides programs and libraries.
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

install(PROGRAMS examples/batch/merge-bracket examples/batch/merge-brackets.sbatch
  DESTINATION "${CMAKE_INSTALL_DOCDIR}/examples" COMPONENT runtime)
install(FILES LICENSE README.md CHANGELOG.md DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT runtime)
