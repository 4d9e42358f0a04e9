# The Rust crates, as one static library of thin wrappers. Debian's source packages are cargo's only source.
find_program(CARGO cargo)
set(CRATES /usr/share/cargo/registry CACHE PATH "Where Debian's packages of Rust crates lie")
set(CRATE_DEPENDENCIES "")
set(CRATE_MODULES "")
set(rust_sources "")

foreach(crate memchr bytecount percent-encoding encoding_rs strsim)
  string(REPLACE - _ module ${crate})
  file(GLOB found ${CRATES}/${crate}-[0-9]*)
  if(CARGO AND found)
    string(APPEND CRATE_DEPENDENCIES "${crate} = \"*\"\n")
    string(APPEND CRATE_MODULES "mod ${module}_peer;\n")
    configure_file(peers/rust/crates/${module}.rs rust/src/${module}_peer.rs COPYONLY)
    list(APPEND rust_sources ${CMAKE_CURRENT_BINARY_DIR}/rust/src/${module}_peer.rs)
    target_sources(stringbench PRIVATE peers/rust_${module}.cpp)
  else()
    list(APPEND missing_peers "Rust ${crate}")
  endif()
endforeach()

if(rust_sources)
  set(rust ${CMAKE_CURRENT_BINARY_DIR}/rust)
  set(rust_library ${rust}/target/release/libpeers.a)
  configure_file(peers/rust/Cargo.toml.in ${rust}/Cargo.toml @ONLY)
  configure_file(peers/rust/config.toml.in ${rust}/.cargo/config.toml @ONLY)
  configure_file(peers/rust/lib.rs.in ${rust}/src/lib.rs @ONLY)
  add_custom_command(OUTPUT ${rust_library}
    COMMAND ${CMAKE_COMMAND} -E env CARGO_TARGET_DIR=${rust}/target CARGO_HOME=${rust}/home
            ${CARGO} build --release --offline --quiet
    DEPENDS ${rust_sources} ${rust}/src/lib.rs ${rust}/Cargo.toml
    WORKING_DIRECTORY ${rust} VERBATIM)
  add_custom_target(rust_peers DEPENDS ${rust_library})
  add_dependencies(stringbench rust_peers)
  target_link_libraries(stringbench PRIVATE ${rust_library})
endif()
