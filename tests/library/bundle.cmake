# One check of the plugin as a bundle of macOS. Not yet run on that system.
#   cmake -DCHECK=… -DFILE=… -DNM=… -P bundle.cmake
include(${CMAKE_CURRENT_LIST_DIR}/expect.cmake)

function(check_exports)
  run(symbols ${NM} -g -U -j -arch all ${FILE})
  string(REGEX REPLACE "\n[^\n]*\\(for architecture [a-z0-9_]+\\):" "" symbols "\n${symbols}")
  string(REGEX REPLACE "[\n]+" "\n" symbols "${symbols}")
  expect_equal("${symbols}" "\n_REALPluginMain\n_REALPluginMain\n" "exported symbols")
endfunction()

function(check_dependencies)
  run(libraries otool -L ${FILE})
  string(REGEX REPLACE "/usr/lib/lib(System\\.B|c\\+\\+\\.1)\\.dylib" "" rest "${libraries}")
  expect_not("${rest}" "\t[^\n]*\\.dylib[^\n]*" "more than the system is needed")
endfunction()

function(check_processors)
  run(processors lipo -archs ${FILE})
  foreach(processor x86_64 arm64)
    expect("${processors}" "${processor}" "code for ${processor}")
  endforeach()
endfunction()

cmake_language(CALL check_${CHECK})
