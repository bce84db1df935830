# The editor's catalogues, compiled into ":/vesk/i18n" of the program. They hold the texts of the
# editor itself and those that it shows on behalf of the libraries below it.
set(languages de_DE es_ES fr_FR ja_JP ko_KR zh_CN zh_TW)
set(translated_sources
  "${CMAKE_CURRENT_SOURCE_DIR}"
  "${PROJECT_SOURCE_DIR}/src/host/VeskUI"
  "${PROJECT_SOURCE_DIR}/src/host/VeskRaw"
  "${PROJECT_SOURCE_DIR}/src/pictures"
  "${PROJECT_SOURCE_DIR}/src/command_line")
set_property(GLOBAL PROPERTY VESK_TRANSLATED_SOURCES "${translated_sources}")

set(i18n_dir "${CMAKE_CURRENT_BINARY_DIR}/i18n")
set(catalogues)
set(compiled_catalogues)
file(MAKE_DIRECTORY "${i18n_dir}")
foreach(language IN LISTS languages)
  set(catalogue "${CMAKE_CURRENT_SOURCE_DIR}/resources/vesk_${language}.ts")
  set(compiled "${i18n_dir}/vesk_${language}.qm")
  add_custom_command(OUTPUT "${compiled}"
    COMMAND Qt6::lrelease -silent "${catalogue}" -qm "${compiled}"
    DEPENDS "${catalogue}" VERBATIM)
  list(APPEND catalogues "${catalogue}")
  list(APPEND compiled_catalogues "${compiled}")
endforeach()

# The collection stands beside the files that it lists.
configure_file(resources/i18n.qrc "${i18n_dir}/i18n.qrc" COPYONLY)
add_custom_command(OUTPUT "${i18n_dir}/qrc_i18n.cpp"
  COMMAND Qt6::rcc --name i18n -o "${i18n_dir}/qrc_i18n.cpp" "${i18n_dir}/i18n.qrc"
  DEPENDS "${i18n_dir}/i18n.qrc" ${compiled_catalogues} VERBATIM)
set_source_files_properties("${i18n_dir}/qrc_i18n.cpp" PROPERTIES SKIP_AUTOGEN ON)

# Brings the texts of the sources into the catalogues; translating them is left to people.
add_custom_target(update_translations
  COMMAND Qt6::lupdate -silent -no-obsolete -locations none ${translated_sources} -ts ${catalogues}
  VERBATIM)
