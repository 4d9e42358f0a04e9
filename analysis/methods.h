/// The registered methods that compare, measure, inspect and format strings.
#pragma once

#include "host/records.h"

REALstringStruct* GetUnicodeMarkers(std::int32_t kind) noexcept;
REALstringStruct* Hexstring(REALstringStruct* input, std::int32_t hexlen, std::int32_t linelen,
                            REALstringStruct* linestart, REALstringStruct* lineend, REALstringStruct* spacer,
                            REALstringStruct* filler) noexcept;
REALstringStruct* ReplaceNonPrintableCharactersZQV(REALstringStruct* s, std::int32_t replacevalue) noexcept;
REALstringStruct* SQLReplaceBooleanZQV(REALstringStruct* SQL) noexcept;
REALstringStruct* ScientificStrZQV(double d, std::int32_t digits) noexcept;
REALstringStruct* StrZQV(double d) noexcept;

HostInteger CountOccurancesZQV(REALstringStruct* s, REALstringStruct* find) noexcept;
HostInteger DetectUnicodeMarkers(REALstringStruct* s) noexcept;
HostInteger StrCompBytesZQV(REALstringStruct* a, REALstringStruct* b) noexcept;
HostInteger StrCompCharsZQV(REALstringStruct* a, REALstringStruct* b) noexcept;

double jaroWinklerDistanceZQV(REALstringStruct* a, REALstringStruct* b) noexcept;
double levenshteinDistanceZQV(REALstringStruct* a, REALstringStruct* b) noexcept;

HostBoolean IsASCIIString1(REALstringStruct* s) noexcept;
HostBoolean IsASCIIString2(REALstringStruct* s, std::int32_t mode) noexcept;
