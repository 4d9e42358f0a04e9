/// The registered methods that compare, measure, inspect and format strings.
#pragma once

#include "host/records.h"

/// The optimal string alignment distance of two texts in code points, divided by the length of the shorter one; 1.0
/// when either is empty. Raises an "OutOfMemoryException" and gives 1.0 when a matrix of 32-bit cells for the lengths
/// would have more than 2^31 - 1 bytes, or memory is short.
[[nodiscard]] double levenshteinDistanceZQV(REALstringStruct* a, REALstringStruct* b) noexcept;

/// 1.0 less the Jaro-Winkler similarity of two texts in code points. Raises an "OutOfMemoryException" and gives 0.0
/// when memory is short.
[[nodiscard]] double jaroWinklerDistanceZQV(REALstringStruct* a, REALstringStruct* b) noexcept;

/// Compares bytes, whatever the encodings. A shorter string counts as continued by zero bytes; the empty string comes
/// before every other. -1, 0 or 1.
[[nodiscard]] HostInteger StrCompBytesZQV(REALstringStruct* a, REALstringStruct* b) noexcept;

/// As `StrCompBytesZQV` where the host gives both the same encoding; compares their UTF-8 forms otherwise, an empty one
/// counting as zero bytes, too.
[[nodiscard]] HostInteger StrCompCharsZQV(REALstringStruct* a, REALstringStruct* b) noexcept;

/// Counts the occurrences of the bytes of one string in another, from left to right and without overlap; an empty
/// string to find has none.
[[nodiscard]] HostInteger CountOccurancesZQV(REALstringStruct* s, REALstringStruct* find) noexcept;

[[nodiscard]] REALstringStruct* Hexstring(REALstringStruct* input, std::int32_t hexlen, std::int32_t linelen,
                                          REALstringStruct* linestart, REALstringStruct* lineend,
                                          REALstringStruct* spacer, REALstringStruct* filler) noexcept;

[[nodiscard]] HostBoolean IsASCIIString1(REALstringStruct* s) noexcept;
[[nodiscard]] HostBoolean IsASCIIString2(REALstringStruct* s, std::int32_t mode) noexcept;
[[nodiscard]] REALstringStruct* ReplaceNonPrintableCharactersZQV(REALstringStruct* s,
                                                                 std::int32_t replacevalue) noexcept;

[[nodiscard]] HostInteger DetectUnicodeMarkers(REALstringStruct* s) noexcept;
[[nodiscard]] REALstringStruct* GetUnicodeMarkers(std::int32_t kind) noexcept;

[[nodiscard]] REALstringStruct* SQLReplaceBooleanZQV(REALstringStruct* SQL) noexcept;

[[nodiscard]] REALstringStruct* StrZQV(double d) noexcept;
[[nodiscard]] REALstringStruct* ScientificStrZQV(double d, std::int32_t digits) noexcept;
