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
