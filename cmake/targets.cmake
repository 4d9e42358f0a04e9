# The products, and how a folder contributes to them.

include(GNUInstallDirs)

# Where the plugin is installed. Windows has libraries beside its programs.
if(WIN32)
  set(INSTALLED_PLUGIN_FOLDER ${CMAKE_INSTALL_BINDIR})
else()
  set(INSTALLED_PLUGIN_FOLDER ${CMAKE_INSTALL_LIBDIR})
endif()

# Kernels: the C++ standard library and nothing else. What they are built with is no concern of those who link them.
add_library(stringkernels STATIC)
target_link_libraries(stringkernels PRIVATE $<BUILD_INTERFACE:shipped_options>)

# The bridge to the host, below the methods.
add_library(hostbridge STATIC)
target_link_libraries(hostbridge PUBLIC compiler_options stringkernels PRIVATE shipped_options)

# The plugin file. It lies directly in the build folder, under the name it ships with.
# In a page there are no libraries to load: there it is linked into the program that plays the host.
if(EMSCRIPTEN)
  add_library(StringPlugin STATIC)
else()
  add_library(StringPlugin MODULE)
  harden_plugin(StringPlugin)
endif()
target_link_libraries(StringPlugin PRIVATE shipped_options hostbridge)
set_target_properties(StringPlugin PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})

# add_kernels(FILE...): sources that see no host type.
function(add_kernels)
  if(EMSCRIPTEN)  # there is nothing in the wide ones
    list(FILTER ARGN EXCLUDE REGEX "_(avx2|avx512|neon)\\.cpp$")
  endif()
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  target_sources(stringkernels PRIVATE ${ARGN})
endfunction()

# add_host_bridge(FILE...): sources that see the host but none of the methods.
function(add_host_bridge)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  target_sources(hostbridge PRIVATE ${ARGN})
endfunction()

# add_methods(FILE...): sources of the plugin itself.
function(add_methods)
  list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  target_sources(StringPlugin PRIVATE ${ARGN})
endfunction()
