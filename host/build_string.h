/// Building the host strings that methods return.
#pragma once

#include "host/records.h"

/// Makes a new host string of a buffer, which is only read.
///
/// UTF-16 and UTF-32 text reaches the host as a UTF-8 string. Bytes marked Mac Roman, Windows Latin 1 or without
/// an encoding become US-ASCII when all of them are below 0x80.
/// @param length  in bytes; UTF-32 ignores 1 to 3 trailing ones on hosts below 2013.0
/// @return one reference owned by the caller; null, the empty string, for a null buffer, a length below 1 or above
///         2^31 - 1, or where the host or memory fails
[[nodiscard]] REALstringStruct* REALBuildUnicodeString(const void* buffer, std::int64_t length,
                                                       TextEncoding encoding) noexcept;

/// Makes a new UTF-8 host string of UTF-16 units in the processor's byte order.
/// @param length  in bytes; only its low 32 bits are passed on
/// @return one reference owned by the caller, or null
[[nodiscard]] REALstringStruct* REALBuildUnicodeStringUTF16(const void* buffer, std::int64_t length) noexcept;
