# The two libraries of the command line, CLI11 and nlohmann_json, which are headers alone. A cross
# build takes them from the building machine through a folder of links: the folder that they stand
# in holds the headers of that machine's system as well, and the compiler must not see those.
if(NOT CMAKE_CROSSCOMPILING)
  find_package(CLI11 REQUIRED)
  find_package(nlohmann_json REQUIRED)
  return()
endif()

function(add_header_library target folder)
  find_path(${folder}_PARENT ${folder} PATHS /usr/include
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(links ${PROJECT_BINARY_DIR}/header_libraries)
  file(MAKE_DIRECTORY ${links})
  file(CREATE_LINK ${${folder}_PARENT}/${folder} ${links}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED)
  target_include_directories(${target} INTERFACE ${links})
endfunction()

add_header_library(CLI11::CLI11 CLI)
add_header_library(nlohmann_json::nlohmann_json nlohmann)
