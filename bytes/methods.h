/// The registered methods on byte strings. Their arguments are read as bytes, whatever encoding they are marked with.
#pragma once

#include "host/records.h"

/// Joins two to six strings byte for byte. The result has no encoding, or US-ASCII when all bytes are below 0x80;
/// it is empty when there are no bytes, or with 10 added more than 2^31 - 1 of them, or memory is short.
[[nodiscard]] REALstringStruct* ConcatBinaryStringsZQV2(REALstringStruct* a, REALstringStruct* b) noexcept;
[[nodiscard]] REALstringStruct* ConcatBinaryStringsZQV3(REALstringStruct* a, REALstringStruct* b,
                                                        REALstringStruct* c) noexcept;
[[nodiscard]] REALstringStruct* ConcatBinaryStringsZQV4(REALstringStruct* a, REALstringStruct* b, REALstringStruct* c,
                                                        REALstringStruct* d) noexcept;
[[nodiscard]] REALstringStruct* ConcatBinaryStringsZQV5(REALstringStruct* a, REALstringStruct* b, REALstringStruct* c,
                                                        REALstringStruct* d, REALstringStruct* e) noexcept;
[[nodiscard]] REALstringStruct* ConcatBinaryStringsZQV6(REALstringStruct* a, REALstringStruct* b, REALstringStruct* c,
                                                        REALstringStruct* d, REALstringStruct* e,
                                                        REALstringStruct* f) noexcept;

/// Combines each byte of the first string with one of the second, which is repeated as often as needed. The result has
/// the length of the first string and no encoding, or US-ASCII when all its bytes are below 0x80; it is empty when
/// either string is, or with 5 added the first has more than 2^31 - 1 bytes, or memory is short.
[[nodiscard]] REALstringStruct* StringAND(REALstringStruct* a, REALstringStruct* b) noexcept;
[[nodiscard]] REALstringStruct* StringOR(REALstringStruct* a, REALstringStruct* b) noexcept;

/// The same; the mask begins at its byte `MaskOffset`, counted modulo its length.
[[nodiscard]] REALstringStruct* StringXOR(REALstringStruct* data, REALstringStruct* XorMask,
                                          std::int32_t MaskOffset) noexcept;

/// As `StringXOR`, and each byte is also combined with the low 8 bits of its own position.
[[nodiscard]] REALstringStruct* StringXOR2(REALstringStruct* data, REALstringStruct* XorMask,
                                           std::int32_t MaskOffset) noexcept;

/// Pseudo-random bytes, from the generator that the whole process shares. Without `ASCII` they have any value and no
/// encoding, or US-ASCII when all are below 0x80; with it they are 0x20 to 0x7F, in US-ASCII. Empty when the length is
/// below 1 or memory is short, and then nothing is drawn.
[[nodiscard]] REALstringStruct* RandomBytesStringZQV(std::int32_t Length, HostBooleanArgument ASCII) noexcept;
