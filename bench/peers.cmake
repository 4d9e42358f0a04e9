# Which peers this machine has. Each wrapper file is built where its library is found; the names of the others are
# handed to the program, which reports them.
set(missing_peers "")

# add_peer(NAME FILE [MODULE...]): a peer that pkg-config knows; without modules it is always there.
function(add_peer name file)
  string(MAKE_C_IDENTIFIER "${name}" id)
  pkg_check_modules(${id} QUIET IMPORTED_TARGET ${ARGN})
  if(${id}_FOUND)
    target_sources(stringbench PRIVATE peers/${file})
    # Headers of others don't have to pass our warnings.
    target_include_directories(stringbench SYSTEM PRIVATE ${${id}_INCLUDE_DIRS})
    target_link_libraries(stringbench PRIVATE ${${id}_LINK_LIBRARIES})
  else()
    list(APPEND missing_peers "${name}")
    set(missing_peers "${missing_peers}" PARENT_SCOPE)
  endif()
endfunction()

add_peer("libxml2" libxml2.cpp libxml-2.0)
add_peer("GLib" glib.cpp glib-2.0)
add_peer("GMime" gmime.cpp gmime-3.0)
add_peer("curl" curl.cpp libcurl)
add_peer("apr-util" apr.cpp apr-1 apr-util-1)
add_peer("Abseil" abseil.cpp absl_strings)
add_peer("OpenSSL" openssl.cpp libcrypto)
add_peer("nettle" nettle.cpp nettle)
add_peer("ICU" icu.cpp icu-uc)
add_peer("uriparser" uriparser.cpp liburiparser)

# cmark keeps the functions we want in its static library.
find_library(CMARK_STATIC libcmark.a)
find_path(CMARK_INCLUDE_DIR cmark.h)
if(CMARK_STATIC AND CMARK_INCLUDE_DIR)
  target_sources(stringbench PRIVATE peers/cmark.cpp)
  target_link_libraries(stringbench PRIVATE ${CMARK_STATIC})
else()
  list(APPEND missing_peers "cmark")
endif()

find_package(double-conversion QUIET)
if(double-conversion_FOUND)
  target_sources(stringbench PRIVATE peers/double_conversion.cpp)
  target_link_libraries(stringbench PRIVATE double-conversion::double-conversion)
else()
  list(APPEND missing_peers "double-conversion")
endif()

include(rust_peers.cmake)

string(JOIN ", " missing_peers ${missing_peers})
target_compile_definitions(stringbench PRIVATE MISSING_PEERS="${missing_peers}")
