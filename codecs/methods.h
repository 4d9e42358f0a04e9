/// The registered methods of this folder. A null string is the empty string, as argument and as result.
/// None of them throws; what odd input and failures give is told in docs/methods/codecs.md.
#pragma once

#include <cstdint>

#include "host/records.h"

// Hexadecimal text.
REALstringStruct* EncodingToHex(REALstringStruct* s) noexcept;
REALstringStruct* DecodingToHex(REALstringStruct* s) noexcept;

// Single-byte character sets.
REALstringStruct* EncodingToISO8859(REALstringStruct* s) noexcept;
REALstringStruct* DecodingToISO8859(REALstringStruct* s) noexcept;
REALstringStruct* EncodingToCP1252(REALstringStruct* s) noexcept;
REALstringStruct* DecodingToCP1252(REALstringStruct* s) noexcept;

// Percent-encoding; the forms without options are those with options 0.
REALstringStruct* EncodingToURL1(REALstringStruct* s) noexcept;
REALstringStruct* EncodingToURL2(REALstringStruct* s, std::int32_t options) noexcept;
REALstringStruct* DecodingToURL1(REALstringStruct* s) noexcept;
REALstringStruct* DecodingToURL2(REALstringStruct* s, std::int32_t options) noexcept;

// Quoted-printable and e-mail subjects.
REALstringStruct* EncodingToQuotedPrintable2(REALstringStruct* s, std::int32_t lineLength) noexcept;
REALstringStruct* DecodingToQuotedPrintable(REALstringStruct* s) noexcept;
REALstringStruct* EncodeEmailSubjectZQV(REALstringStruct* s) noexcept;

// yEnc, of a memory block and of a string.
REALmemoryBlockStruct* yDecodeZQVm(REALmemoryBlockStruct* data) noexcept;
REALstringStruct* yDecodeZQVs(REALstringStruct* data) noexcept;

// Backslash escapes of MySQL's string literals.
REALstringStruct* DecodingFromMySQL(REALstringStruct* s) noexcept;
