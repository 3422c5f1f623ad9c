# One zip for Windows from both build trees: the library of each width with its programs in a folder
# of its own, and beside them what is the same for both.
set(host ${PROJECT_SOURCE_DIR}/src/apps/windows_host)
configure_file(${host}/README.txt README.txt @ONLY NEWLINE_STYLE CRLF)
install(FILES ${CMAKE_BINARY_DIR}/README.txt DESTINATION . COMPONENT windows-common)
# Made by the program for the building machine, so scripts/package-windows says where it is.
set(KEYSCOUT_SAMPLE_CATALOG "" CACHE PATH "The data directory that the zip brings along")
if(KEYSCOUT_SAMPLE_CATALOG)
  install(DIRECTORY ${KEYSCOUT_SAMPLE_CATALOG}/ DESTINATION sample COMPONENT windows-common)
endif()
install(FILES ${host}/scripts/lookup.vbs ${host}/scripts/lookup.js
  DESTINATION scripts COMPONENT windows-common)

set(build ${PROJECT_SOURCE_DIR}/build)
set(CPACK_INSTALL_CMAKE_PROJECTS
  "${build}/windows64" ${PROJECT_NAME} windows /x64
  "${build}/windows32" ${PROJECT_NAME} windows /x86
  "${build}/windows64" ${PROJECT_NAME} windows-common /)
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME keyscout-${PROJECT_VERSION}-windows)
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_STRIP_FILES ON)
include(CPack)
