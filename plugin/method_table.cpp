#include "plugin/method_table.h"

#include "analysis/methods.h"
#include "bytes/methods.h"
#include "codecs/methods.h"
#include "host/methods.h"
#include "markup/methods.h"

namespace {

constexpr MethodEntry method(const char* declaration, MethodFunction function) noexcept {
  return {function, nullptr, declaration, kMethodFlag, 0, nullptr};
}

// clang-format off
constexpr MethodEntry kMethods[] = {
    method("EncodeEmailSubjectZQV(s as string) as string", EncodeEmailSubjectZQV),
    method("_yDecodeMemoryZQV(data as memoryblock) as memoryblock", yDecodeZQVm),
    method("_yDecodeStringZQV(data as string) as string", yDecodeZQVs),
    method("JaroWinklerDistanceZQV(a as string, b as string) as double", jaroWinklerDistanceZQV),
    method("LevenshteinDistanceZQV(a as string, b as string) as double", levenshteinDistanceZQV),
    method("ScientificStrZQV(d as double, digits as integer) as string", ScientificStrZQV),
    method("StrZQV(d as double) as string", StrZQV),
    method("RandomBytesStringZQV(Length as integer, ASCII as boolean=false) as string", RandomBytesStringZQV),
    method("StrCompBytesZQV(a as string, b as string) as integer", StrCompBytesZQV),
    method("StrCompCharactersZQV(a as string, b as string) as integer", StrCompCharsZQV),
    method("CountOccurancesZQV(s as string, find as string) as integer", CountOccurancesZQV),
    method("DetectUnicodeMarkersZQV(s as string) as integer", DetectUnicodeMarkers),
    method("GetUnicodeMarkersZQV(kind as integer) as string", GetUnicodeMarkers),
    method("StringIsHTMLreadyZQV(s as string) as boolean", StringIsHTMLready),
    method("StringIsXMLreadyZQV(s as string) as boolean", StringIsXMLready),
    method("StringANDZQV(a as string,b as string) as string", StringAND),
    method("StringORZQV(a as string,b as string) as string", StringOR),
    method("StringXORZQV(data as string, XorMask as string, MaskOffset as integer = 0) as string", StringXOR),
    method("StringXOR2ZQV(data as string, XorMask as string, MaskOffset as integer = 0) as string", StringXOR2),
    method("UnicodeStringZQV(s as string) as string", RBUnicodeString),
    method("NativeStringZQV(s as string) as string", RBNativeString),
    method("DecodingFromMySQLZQV(s as string) as string", DecodingFromMySQL),
    method("EncodingToHTMLZQV(s as string, options as integer = 0) as string", EncodingToHTML),
    method("DecodingFromHTMLZQV(s as string) as string", DecodingToHTML),
    method("EncodingToXMLZQV(s as string, options as integer = 0) as string", EncodingToXML),
    method("DecodingFromXMLZQV(s as string) as string", DecodingToHTML),
    method("EncodingToURLZQV(s as string) as string", EncodingToURL1),
    method("EncodingToURLZQV(s as string, options as integer) as string", EncodingToURL2),
    method("DecodingFromURLZQV(s as string) as string", DecodingToURL1),
    method("DecodingFromURLZQV(s as string, options as integer) as string", DecodingToURL2),
    method("EncodingToQuotedPrintableZQV(s as string, LineLen as integer = 72) as string", EncodingToQuotedPrintable2),
    method("DecodingFromQuotedPrintableZQV(s as string) as string", DecodingToQuotedPrintable),
    method("HexstringZQV(input as string, hexlen as integer, linelen as integer, linestart as string, lineend as string, spacer as string,filler as string) as string", Hexstring),
    method("EncodingToISO8859ZQV(s as string) as string", EncodingToISO8859),
    method("DecodingFromISO8859ZQV(s as string) as string", DecodingToISO8859),
    method("EncodingToCP1252ZQV(s as string) as string", EncodingToCP1252),
    method("DecodingFromCP1252ZQV(s as string) as string", DecodingToCP1252),
    method("EncodingToHexZQV(s as string) as string", EncodingToHex),
    method("DecodingFromHexZQV(s as string) as string", DecodingToHex),
    method("ReplaceNonPrintableCharactersZQV(s as string, replacevalue as integer=46) as string", ReplaceNonPrintableCharactersZQV),
    method("IsASCIIStringZQV(s as string) as boolean", IsASCIIString1),
    method("IsASCIIStringZQV(s as string, mode as integer) as boolean", IsASCIIString2),
    method("RemoveHTMLTagsZQV(AsciiTextWithTags as string) as string", RemoveHTMLTags),
    method("RemoveHTMLTagsWithZQV(AsciiTextWithTags as string, Replacement as string) as string", RemoveHTMLTagsWith),
    method("ConcatBinaryStringsZQV(a as string, b as string, c as string, d as string, e as string, f as string) as string", ConcatBinaryStringsZQV6),
    method("ConcatBinaryStringsZQV(a as string, b as string, c as string, d as string, e as string) as string", ConcatBinaryStringsZQV5),
    method("ConcatBinaryStringsZQV(a as string, b as string, c as string, d as string) as string", ConcatBinaryStringsZQV4),
    method("ConcatBinaryStringsZQV(a as string, b as string, c as string) as string", ConcatBinaryStringsZQV3),
    method("ConcatBinaryStringsZQV(a as string, b as string) as string", ConcatBinaryStringsZQV2),
    method("SQLReplaceBooleanZQV(SQL as string) as string", SQLReplaceBooleanZQV),
};
// clang-format on

}  // namespace

constinit const std::span<const MethodEntry> globalMethods{kMethods};
