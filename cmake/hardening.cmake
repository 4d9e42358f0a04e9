# What the shipped code is built with on top of the compiler options: protection against what the caller's text
# might find, small stack frames, and a file that needs nothing but the C library.
add_library(shipped_options INTERFACE)
target_link_libraries(shipped_options INTERFACE compiler_options sanitizer_options)

# Counted where the plugin's own code is compiled; the tests need no counting.
# Threads count too, so that counting is atomic.
if(COVERAGE)
  target_compile_options(shipped_options INTERFACE --coverage -fprofile-update=atomic)
endif()

# Hosts call from threads with small stacks. Sanitizers widen frames, so only the real build is measured.
if(NOT INSTRUMENTED)
  target_compile_options(shipped_options INTERFACE -Wframe-larger-than=8191)
endif()

target_compile_options(shipped_options INTERFACE
  -ffunction-sections -fdata-sections)
if(NOT EMSCRIPTEN)  # where no return address lies in memory, and debug information would go into the page
  target_compile_options(shipped_options INTERFACE -g -fstack-protector-strong)
endif()

# Bounds of library calls. On Windows the checks are in a library that would need one more of the system's.
if(NOT INSTRUMENTED AND NOT WIN32 AND NOT EMSCRIPTEN)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
    target_compile_definitions(shipped_options INTERFACE _FORTIFY_SOURCE=3)
  else()
    target_compile_definitions(shipped_options INTERFACE _FORTIFY_SOURCE=2)
  endif()
endif()

if(WIN32 OR APPLE)
  # Neither system has a counterpart that these compilers know.
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i.86)$")
  target_compile_options(shipped_options INTERFACE -fcf-protection=full)
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64)$")
  target_compile_options(shipped_options INTERFACE -mbranch-protection=standard)
endif()

# harden_plugin(TARGET): one export, bound and read-only after loading, debug information in a file beside it.
function(harden_plugin target)
  if(WIN32)
    _harden_dll(${target})
  elseif(APPLE)
    _harden_bundle(${target})
  else()
    _harden_shared_object(${target})
  endif()
  if(NOT INSTRUMENTED)
    _split_debug_information(${target})
  endif()
endfunction()

# ship_program(TARGET): what makes a program fit for a package: the compiler's libraries inside, no symbols, no time.
function(ship_program target)
  if(APPLE OR INSTRUMENTED)
    return()
  elseif(WIN32)
    target_link_options(${target} PRIVATE ${windows_image_options})
  else()
    target_link_options(${target} PRIVATE -static-libstdc++ -static-libgcc -Wl,-z,relro,-z,now,-z,noexecstack)
  endif()
  target_link_options(${target} PRIVATE -s -Wl,--gc-sections)
endfunction()

# Where a file may lie in memory, and nothing in it that changes from one build to the next.
set(windows_image_options -Wl,--dynamicbase,--nxcompat,--no-insert-timestamp)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  list(APPEND windows_image_options -Wl,--high-entropy-va)
endif()

function(_harden_shared_object target)
  set(exports ${PROJECT_SOURCE_DIR}/plugin/exports.map)
  target_link_options(${target} PRIVATE
    -Wl,--version-script=${exports} -Wl,-soname,StringPlugin.so -Wl,--build-id=sha1
    -Wl,-z,relro,-z,now,-z,noexecstack,-z,text -Wl,--gc-sections,--as-needed)
  # Under a sanitizer the program's own runtime has to be the only one.
  if(NOT INSTRUMENTED)
    target_link_options(${target} PRIVATE -static-libstdc++ -static-libgcc -Wl,-z,defs -Wl,--exclude-libs,ALL)
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/plugin/older_glibc.cpp)
  endif()
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${exports})
endfunction()

function(_harden_dll target)
  set(exports ${PROJECT_SOURCE_DIR}/plugin/exports.def)
  target_sources(${target} PRIVATE ${exports})
  target_link_options(${target} PRIVATE ${windows_image_options} -Wl,--gc-sections)
  enable_language(RC)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${PROJECT_BINARY_DIR}/version.rc @ONLY)
  target_sources(${target} PRIVATE ${PROJECT_BINARY_DIR}/version.rc)
endfunction()

# The linker of macOS knows no version scripts, and binds and protects what it links by itself.
function(_harden_bundle target)
  set_target_properties(${target} PROPERTIES SUFFIX .dylib)
  target_link_options(${target} PRIVATE -Wl,-exported_symbol,_REALPluginMain -Wl,-dead_strip)
endfunction()

function(_split_debug_information target)
  if(APPLE)
    add_custom_command(TARGET ${target} POST_BUILD WORKING_DIRECTORY $<TARGET_FILE_DIR:${target}> VERBATIM
      COMMAND dsymutil $<TARGET_FILE_NAME:${target}> -o $<TARGET_FILE_NAME:${target}>.dSYM
      COMMAND ${CMAKE_STRIP} -x $<TARGET_FILE_NAME:${target}>)
    return()
  endif()
  add_custom_command(TARGET ${target} POST_BUILD WORKING_DIRECTORY $<TARGET_FILE_DIR:${target}> VERBATIM
    COMMAND ${CMAKE_OBJCOPY} -p --only-keep-debug $<TARGET_FILE_NAME:${target}> $<TARGET_FILE_NAME:${target}>.debug
    COMMAND ${CMAKE_STRIP} -p --strip-all $<TARGET_FILE_NAME:${target}>
    COMMAND ${CMAKE_OBJCOPY} -p --add-gnu-debuglink=$<TARGET_FILE_NAME:${target}>.debug $<TARGET_FILE_NAME:${target}>)
endfunction()
