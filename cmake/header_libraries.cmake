# Libraries that are headers alone. They are reached through a folder of links in the build tree, so that a build
# for another platform sees these headers and nothing else of this system's include folder.
set(HEADER_LIBRARIES ${PROJECT_BINARY_DIR}/include)

# add_header_library(TARGET FOLDER HEADER): the target to link for <FOLDER/HEADER>.
function(add_header_library target folder header)
  find_path(${folder}_INCLUDE_DIR ${folder}/${header} PATHS /usr/local/include /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED
    DOC "Where ${folder}/${header} lies")
  file(MAKE_DIRECTORY ${HEADER_LIBRARIES})
  file(CREATE_LINK ${${folder}_INCLUDE_DIR}/${folder} ${HEADER_LIBRARIES}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE ${HEADER_LIBRARIES})
endfunction()

add_header_library(doctest::doctest doctest doctest.h)
add_header_library(CLI11::CLI11 CLI CLI.hpp)
add_header_library(nlohmann_json::nlohmann_json nlohmann json.hpp)
