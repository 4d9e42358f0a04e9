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

/// The bytes of a string as digits in groups and groups in framed lines, US-ASCII. Empty for an empty string, or with
/// a group or line below 1. Raises a "RuntimeException" when the digits or the dump would have more than 2^31 - 1
/// bytes, and an "OutOfMemoryException" when memory is short.
/// @param filler  completes the last line; empty stands for "0"
[[nodiscard]] REALstringStruct* Hexstring(REALstringStruct* input, std::int32_t hexlen, std::int32_t linelen,
                                          REALstringStruct* linestart, REALstringStruct* lineend,
                                          REALstringStruct* spacer, REALstringStruct* filler) noexcept;

/// True when there are bytes and all are below 0x80.
[[nodiscard]] HostBoolean IsASCIIString1(REALstringStruct* s) noexcept;

/// True when there are bytes and all are, with mode 0, below 0x80; with 1, from 0x20 to 0x7F; with 2, 0x20 or above.
/// False in every other mode.
[[nodiscard]] HostBoolean IsASCIIString2(REALstringStruct* s, std::int32_t mode) noexcept;

/// The bytes of a string, those outside 0x20 to 0x7F replaced by the low eight bits of a number; marked US-ASCII
/// whatever they are. Empty when memory is short.
[[nodiscard]] REALstringStruct* ReplaceNonPrintableCharactersZQV(REALstringStruct* s,
                                                                 std::int32_t replacevalue) noexcept;

/// The kind of byte-order mark that a string's bytes begin with; 0 for none.
[[nodiscard]] HostInteger DetectUnicodeMarkers(REALstringStruct* s) noexcept;

/// The byte-order mark of a kind as a UTF-8 string; UTF-16 and UTF-32 ones as the host converts them.
[[nodiscard]] REALstringStruct* GetUnicodeMarkers(std::int32_t kind) noexcept;

/// A statement, as UTF-8, with numbers in place of the words TRUE and FALSE outside quotes, up to its first zero byte.
/// Raises an "OutOfMemoryException" when memory is short.
[[nodiscard]] REALstringStruct* SQLReplaceBooleanZQV(REALstringStruct* SQL) noexcept;

/// A number without an exponent and with a limited number of decimals, US-ASCII.
[[nodiscard]] REALstringStruct* StrZQV(double d) noexcept;

/// A number in scientific notation with so many decimals, US-ASCII, cut off after 498 characters.
[[nodiscard]] REALstringStruct* ScientificStrZQV(double d, std::int32_t digits) noexcept;
