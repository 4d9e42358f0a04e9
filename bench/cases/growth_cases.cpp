/// Inputs made to hurt, at sizes ten times apart: nothing may grow faster than its input and output.
#include "bench/cases/inputs.h"

using namespace corpus;
using inputs::text;
using inputs::textWith;

namespace {

/// Needle and text of one letter, the needle with half the text's length.
MakeInput halfNeedle() {
  return [](std::size_t size, Random&) {
    return Input{{{std::string(size, 'a'), kEncodingUTF8}, {std::string(size / 2, 'a') + 'b', kEncodingUTF8}}, {}, {}};
  };
}

MakeInput twice(char first, char second) {
  return [=](std::size_t size, Random&) {
    return Input{{{std::string(size, first), kEncodingUTF8}, {std::string(size, second), kEncodingUTF8}}, {}, {}};
  };
}

}  // namespace

std::vector<Case> growthCases() {
  const std::string group = "Growth";
  std::vector<Case> cases = {
      {group,
       "HTML encode",
       "EncodingToHTMLZQV",
       2,
       Opens::kUTF32,
       Builds::kASCII,
       {{"all &", text(repeated<'&'>, {0})}, {"all U+00FF", text(repeated<'\xC3', '\xBF'>, {0})}}},
      {group,
       "XML encode",
       "EncodingToXMLZQV",
       2,
       Opens::kUTF32,
       Builds::kUTF32,
       {{"all apostrophes", text(repeated<'\''>, {0})}}},
      {group,
       "entity decode",
       "DecodingFromHTMLZQV",
       1,
       Opens::kUTF32,
       Builds::kUTF32,
       {{"all &", text(repeated<'&'>)},
        {"names of 9 characters", text(repeated<'&', 't', 'h', 'e', 't', 'a', 's', 'y', 'm', 'm'>)},
        {"&#x cut short", text(repeated<'&', '#', 'x'>)}}},
      {group,
       "tag removal",
       "RemoveHTMLTagsZQV",
       1,
       Opens::kUTF8,
       Builds::kUTF8,
       {{"all <", text(repeated<'<'>)}, {"all >", text(repeated<'>'>)}}},
      {group,
       "URL decode",
       "DecodingFromURLZQV",
       2,
       Opens::kBytes,
       Builds::kBinary,
       {{"all %", text(repeated<'%'>, {0})}}},
      {group,
       "quoted-printable encode",
       "EncodingToQuotedPrintableZQV",
       2,
       Opens::kBytes,
       Builds::kASCII,
       {{"all blanks", text(repeated<' '>, {72})},
        {"line limit of 2", text(repeated<'a'>, {2})},
        {"one long line", text(repeated<'a'>, {2'000'000'000})}}},
      {group,
       "quoted-printable decode",
       "DecodingFromQuotedPrintableZQV",
       1,
       Opens::kBytes,
       Builds::kASCII,
       {{"all =", text(repeated<'='>)},
        {"= and blanks", text(repeated<'=', ' ', ' ', ' '>)},
        {"all blanks", text(repeated<' '>)}}},
      {group,
       "e-mail subject",
       "EncodeEmailSubjectZQV",
       1,
       Opens::kUTF8,
       Builds::kASCII,
       {{"all U+00FF", text(repeated<'\xC3', '\xBF'>)}}},
      {group,
       "yEnc decode",
       "_yDecodeStringZQV",
       1,
       Opens::kBytes,
       Builds::kBinary,
       {{"all =", text(repeated<'='>, {}, kEncodingNone)}}},
      {group,
       "MySQL unescape",
       "DecodingFromMySQLZQV",
       1,
       Opens::kBytes,
       Builds::kBinary,
       {{"all backslashes", text(repeated<'\\'>)}}},
      {group,
       "XOR",
       "StringXORZQV",
       3,
       Opens::kBytes,
       Builds::kBinary,
       {{"mask of 257", textWith(bytes, std::string(257, 'm'), {256})}}},
      {group,
       "Jaro-Winkler",
       "JaroWinklerDistanceZQV",
       2,
       Opens::kUTF32,
       Builds::kNothing,
       {{"all a and all b", twice('a', 'b')}, {"all a twice", twice('a', 'a')}}},
      {group,
       "count",
       "CountOccurancesZQV",
       2,
       Opens::kBytes,
       Builds::kNothing,
       {{"all a, needle half as long", halfNeedle()},
        {"all a, needle of a and b", textWith(repeated<'a'>, std::string(200, 'a') + "b" + std::string(200, 'a'))}}},
      {group,
       "replace non-printables",
       "ReplaceNonPrintableCharactersZQV",
       2,
       Opens::kBytes,
       Builds::kASCII,
       {{"all zero bytes", text(repeated<'\0'>, {46})}}},
      {group,
       "SQL booleans",
       "SQLReplaceBooleanZQV",
       1,
       Opens::kUTF8,
       Builds::kUTF8,
       {{"all quotes", text(repeated<'\''>)},
        {"all t", text(repeated<'t', 'r', 'u', ' '>)},
        {"one long word", text(repeated<'t'>)}}},
  };
  for (Case& test : cases) test.sizes = {4096, 40'960, 409'600, 4'096'000};
  Case distance{group,
                "Levenshtein",
                "LevenshteinDistanceZQV",
                2,
                Opens::kUTF32,
                Builds::kNothing,
                {{"all a and all b (its input times its input)", twice('a', 'b')}}};
  distance.sizes = {20, 200, 2000, 20'000};
  distance.unit = "characters";
  cases.push_back(distance);
  return cases;
}
