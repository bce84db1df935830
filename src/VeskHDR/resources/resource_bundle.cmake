# The resource bundle veskhdr: the compiled catalogues and the enciphered OpenCL program, uncompressed
# and in format version 1, as resource_bundle.cpp includes them.

set(bundle_source "${CMAKE_CURRENT_LIST_DIR}")
set(bundle_dir "${CMAKE_CURRENT_BINARY_DIR}/resources")
set(bundle_files)
file(MAKE_DIRECTORY "${bundle_dir}")

foreach(locale zh_TW fr_FR ko_KR ja_JP es_ES zh_CN de_DE)
  set(source "${bundle_source}/veskhdr_${locale}.ts")
  set(catalogue "${bundle_dir}/veskhdr_${locale}.qm")
  add_custom_command(OUTPUT "${catalogue}"
    COMMAND Qt6::lrelease -silent "${source}" -qm "${catalogue}"
    DEPENDS "${source}" VERBATIM)
  list(APPEND bundle_files "${catalogue}")
endforeach()

add_executable(assemble_kernel assemble_kernel.cpp merge_weights.cpp merge_weights.h)
target_compile_options(assemble_kernel PRIVATE -ffp-contract=off)
target_compile_definitions(assemble_kernel PRIVATE QT_NO_CAST_FROM_ASCII)
target_link_libraries(assemble_kernel PRIVATE vesk_options Qt6::Core Qt6::Gui)

add_custom_command(OUTPUT "${bundle_dir}/hdr.cl_"
  COMMAND assemble_kernel "${CMAKE_CURRENT_SOURCE_DIR}/hdr.cl" "${bundle_dir}/hdr.cl"
  COMMAND encipher "${bundle_dir}/hdr.cl" "${bundle_dir}/hdr.cl_"
  BYPRODUCTS "${bundle_dir}/hdr.cl"
  DEPENDS hdr.cl assemble_kernel encipher VERBATIM)
list(APPEND bundle_files "${bundle_dir}/hdr.cl_")

# The collection stands beside the files that it lists.
configure_file("${bundle_source}/veskhdr.qrc" "${bundle_dir}/veskhdr.qrc" COPYONLY)
add_custom_command(OUTPUT "${bundle_dir}/qrc_veskhdr.cpp"
  COMMAND Qt6::rcc --name veskhdr --format-version 1 --no-compress
    -o "${bundle_dir}/qrc_veskhdr.cpp" "${bundle_dir}/veskhdr.qrc"
  DEPENDS "${bundle_dir}/veskhdr.qrc" ${bundle_files} VERBATIM)

target_sources(VeskHDREngine PRIVATE "${bundle_source}/resource_bundle.cpp")
target_include_directories(VeskHDREngine PRIVATE "${bundle_dir}")
set_source_files_properties("${bundle_source}/resource_bundle.cpp" PROPERTIES
  SKIP_AUTOMOC ON OBJECT_DEPENDS "${bundle_dir}/qrc_veskhdr.cpp")
