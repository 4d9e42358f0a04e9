/// Views of bytes and code units: how kernels see their input and output.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// Bytes that are only read.
using ByteView = std::span<const std::uint8_t>;

/// Bytes that are written.
using ByteSpan = std::span<std::uint8_t>;

/// UTF-16 code units in the processor's byte order.
using Utf16View = std::span<const char16_t>;

/// Code points, one 32-bit unit each; any value may occur.
using Utf32View = std::span<const char32_t>;
