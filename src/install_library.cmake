# What a host in C++ is built with: the headers under <keyscout/...>, the library in both kinds, and
# the files by which CMake and pkg-config find them.

# The same objects once more as a shared library. Its major version is that of the headers: it
# changes when a host must be built anew.
add_library(keyscout_shared SHARED $<TARGET_OBJECTS:keyscout>)
set_target_properties(keyscout_shared PROPERTIES
  OUTPUT_NAME keyscout
  LINKER_LANGUAGE CXX
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})
if(NOT KEYSCOUT_SANITIZE)  # what checks the program is then looked for in the program
  target_link_options(keyscout_shared PRIVATE -Wl,--no-undefined)
endif()
target_compile_features(keyscout_shared PUBLIC cxx_std_20)

set(headers ${CMAKE_CURRENT_BINARY_DIR}/include)
file(GLOB_RECURSE sources CONFIGURE_DEPENDS *.h)
add_custom_command(
  OUTPUT ${headers}.laid_out
  COMMAND ${CMAKE_COMMAND} -DFROM=${CMAKE_CURRENT_SOURCE_DIR} -DTO=${headers}
          -P ${PROJECT_SOURCE_DIR}/cmake/stage_headers.cmake
  COMMAND ${CMAKE_COMMAND} -E touch ${headers}.laid_out
  DEPENDS ${sources} ${PROJECT_SOURCE_DIR}/cmake/stage_headers.cmake
  VERBATIM)
add_custom_target(keyscout_headers ALL DEPENDS ${headers}.laid_out)
add_dependencies(keyscout keyscout_headers)
foreach(library keyscout keyscout_shared)
  target_include_directories(${library} INTERFACE
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
endforeach()
if(NOT PROJECT_IS_TOP_LEVEL)  # a host that takes the sources into its own tree
  target_include_directories(keyscout INTERFACE $<BUILD_INTERFACE:${headers}>)
endif()

# Installed, `keyscout::keyscout` is the shared library and `keyscout::keyscout_static` the other.
set_target_properties(keyscout PROPERTIES EXPORT_NAME keyscout_static)
set_target_properties(keyscout_shared PROPERTIES EXPORT_NAME keyscout)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/keyscout)
install(TARGETS keyscout keyscout_shared EXPORT keyscoutTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library
    NAMELINK_COMPONENT development)
install(DIRECTORY ${headers}/keyscout DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT development)
install(EXPORT keyscoutTargets NAMESPACE keyscout:: DESTINATION ${package} COMPONENT development)

include(CMakePackageConfigHelpers)
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/keyscoutConfig.cmake
  "include(\${CMAKE_CURRENT_LIST_DIR}/keyscoutTargets.cmake)\n")
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/keyscoutConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/keyscoutConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/keyscoutConfigVersion.cmake
  DESTINATION ${package} COMPONENT development)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/host
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/keyscout/examples COMPONENT development)

# Where the installed tree begins as seen from the file, so that the tree can be moved.
file(RELATIVE_PATH prefixFromPkgConfig
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(keyscout.pc.in keyscout.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/keyscout.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
