# Settings that every target shares, and the two kinds of target that the project is made of.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
if(APPLE)
  set(CMAKE_INSTALL_RPATH "@loader_path/../${CMAKE_INSTALL_LIBDIR};@loader_path")
else()
  set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")
endif()

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

add_library(vesk_options INTERFACE)
target_compile_options(vesk_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  $<$<BOOL:${VESK_WERROR}>:-Werror>)
include(CheckCXXCompilerFlag)
# Unique symbols pin a shared library in the process: the tool must really leave it on unload.
check_cxx_compiler_flag(-fno-gnu-unique VESK_HAS_NO_GNU_UNIQUE)
if(VESK_HAS_NO_GNU_UNIQUE)
  target_compile_options(vesk_options INTERFACE -fno-gnu-unique)
endif()
if(VESK_SANITIZE)
  add_compile_options(-fsanitize=${VESK_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VESK_SANITIZE})
  if(VESK_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=undefined)
  endif()
endif()

# A shared library with the version-1 file name, headers found as <name.h> by its users.
function(vesk_add_library name)
  add_library(${name} SHARED ${ARGN})
  add_library(Vesk::${name} ALIAS ${name})
  target_link_libraries(${name} PRIVATE vesk_options)
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vesk>)
  set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION 1)
endfunction()

# Installs a library with the headers that its users include, and exports it to find_package.
#
# vesk_install_library(name header...)
function(vesk_install_library name)
  install(TARGETS ${name} EXPORT VeskHDRTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
  install(FILES ${ARGN} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/vesk" COMPONENT development)
endfunction()
