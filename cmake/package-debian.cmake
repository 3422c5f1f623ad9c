# Three packages for Debian: the program with all that belongs to it, the library that hosts run
# with, and what they are built with. `scripts/package-debian` makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "Keyscout developers <developers@keyscout.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL program library development)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE zstd)

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME keyscout)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "look up product catalog numbers as they are typed
 Makes, checks and tries the data directories of the Keyscout component, which
 lists catalog numbers below an edit box. With a man page, completion for bash,
 zsh and fish, and a catalog to try it on.")

set(library libkeyscout${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
# The cache of the dynamic linker is brought up to date by its own package.
file(WRITE ${CMAKE_BINARY_DIR}/packages/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${CMAKE_BINARY_DIR}/packages/triggers)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "edit box for product catalog numbers, shared library
 What hosts of the Keyscout component run with.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkeyscout-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "edit box for product catalog numbers, to build hosts
 The headers of the Keyscout component, the library in both kinds, and the files
 by which CMake and pkg-config find them.")
include(CPack)
