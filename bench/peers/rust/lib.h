/// What the Rust crates offer through the wrappers in src/.
#pragma once

#include <cstddef>
#include <cstdint>

extern "C" {
std::size_t peer_memmem_count(const std::uint8_t* text, std::size_t size, const std::uint8_t* needle,
                              std::size_t length);
std::size_t peer_bytecount(const std::uint8_t* text, std::size_t size, std::uint8_t byte);
std::size_t peer_percent_encode(const std::uint8_t* text, std::size_t size, std::uint8_t* out);
std::size_t peer_percent_decode(const std::uint8_t* text, std::size_t size, std::uint8_t* out);
std::size_t peer_latin1_decode(const std::uint8_t* text, std::size_t size, std::uint8_t* out, std::size_t room);
std::size_t peer_windows1252_decode(const std::uint8_t* text, std::size_t size, std::uint8_t* out, std::size_t room);
std::size_t peer_windows1252_encode(const std::uint8_t* text, std::size_t size, std::uint8_t* out, std::size_t room);
std::size_t peer_latin1_encode(const std::uint8_t* text, std::size_t size, std::uint8_t* out, std::size_t room);
std::size_t peer_ascii_prefix(const std::uint8_t* text, std::size_t size);
std::size_t peer_osa_distance(const std::uint8_t* a, std::size_t n, const std::uint8_t* b, std::size_t m);
double peer_jaro_winkler(const std::uint8_t* a, std::size_t n, const std::uint8_t* b, std::size_t m);
}
