/// Text encoding identifiers, in the platform's TextEncoding numbering.
#pragma once

#include <cstdint>

using TextEncoding = std::uint32_t;

inline constexpr TextEncoding kEncodingMacRoman = 0x0000'0000;
inline constexpr TextEncoding kEncodingUTF16 = 0x0000'0100;  ///< host byte order
inline constexpr TextEncoding kEncodingWindowsLatin1 = 0x0000'0500;
inline constexpr TextEncoding kEncodingASCII = 0x0000'0600;
inline constexpr TextEncoding kEncodingUTF8 = 0x0800'0100;
inline constexpr TextEncoding kEncodingUTF32 = 0x0C00'0100;  ///< host byte order
inline constexpr TextEncoding kEncodingNone = 0x0000'FFFF;   ///< bytes that are not text
