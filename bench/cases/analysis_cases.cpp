/// Comparing, counting, testing and rewriting.
#include "bench/cases/inputs.h"

using namespace corpus;
using inputs::text;
using inputs::textWith;

namespace {

/// Two equal texts, each of the size.
MakeInput equal(Generator generator, TextEncoding second = kEncodingUTF8) {
  return [=](std::size_t size, Random& random) {
    const std::string contents = generator(size, random);
    return Input{{{contents, kEncodingUTF8}, {contents, second}}, {}, {}};
  };
}

/// Two texts of that many characters, the second with every tenth character changed or dropped.
MakeInput alike(Generator generator, std::size_t bytesPerCharacter) {
  return [=](std::size_t size, Random& random) {
    const std::string first = generator(size * bytesPerCharacter, random);
    std::string second;
    for (std::size_t i = 0; i < first.size(); i += bytesPerCharacter) {
      const std::size_t from = random.oneIn(20) ? random.below(size) * bytesPerCharacter : i;
      if (!random.oneIn(20)) second.append(first, from, bytesPerCharacter);
    }
    return Input{{{first, kEncodingUTF8}, {second, kEncodingUTF8}}, {}, {}};
  };
}

/// Two texts that have nothing to do with each other.
MakeInput unlike(Generator generator) {
  return [=](std::size_t size, Random& random) {
    return Input{{{generator(size, random), kEncodingUTF8}, {generator(size, random), kEncodingUTF8}}, {}, {}};
  };
}

/// @param groups  of two digits in a line; 0: all in one line
MakeInput dump(std::int32_t groups, const char* start, const char* end, const char* spacer) {
  return [=](std::size_t size, Random& random) {
    const auto plain = [](const char* part) { return Text{part, kEncodingASCII}; };
    return Input{{{bytes(size, random), kEncodingNone}, plain(start), plain(end), plain(spacer), plain("")},
                 {2, groups != 0 ? groups : static_cast<std::int32_t>(size)},
                 {}};
  };
}

std::string hanOnly(std::size_t size, Random& random) {
  return grown(size, random, [](std::string& text, Random& chance) {
    const std::size_t index = chance.below(400);
    text += '\xE4';
    text += static_cast<char>(0xB8 + index / 64 % 8);
    text += static_cast<char>(0x80 + index % 64);
  });
}

}  // namespace

std::vector<Case> analysisCases() {
  const std::string group = "Analysis";
  const std::vector<std::size_t> characters = {8, 64, 256, 1000, 2000, 10000};
  return {
      {group,
       "Levenshtein",
       "LevenshteinDistanceZQV",
       2,
       Opens::kUTF32,
       Builds::kNothing,
       {{"Latin, alike", alike(letters, 1)}, {"Latin, unlike", unlike(letters)}, {"Chinese, alike", alike(hanOnly, 3)}},
       characters,
       "characters"},
      {group,
       "Jaro-Winkler",
       "JaroWinklerDistanceZQV",
       2,
       Opens::kUTF32,
       Builds::kNothing,
       {{"Latin, alike", alike(letters, 1)}, {"Latin, unlike", unlike(letters)}, {"Chinese, alike", alike(hanOnly, 3)}},
       characters,
       "characters"},
      {group,
       "compare bytes",
       "StrCompBytesZQV",
       2,
       Opens::kBytes,
       Builds::kNothing,
       {{"equal", equal(bytes)}, {"different at once", unlike(bytes)}}},
      {group,
       "compare characters",
       "StrCompCharactersZQV",
       2,
       Opens::kBytes,
       Builds::kNothing,
       {{"equal", equal(french)}}},
      {group,
       "count",
       "CountOccurancesZQV",
       2,
       Opens::kBytes,
       Builds::kNothing,
       {{"rare word", textWith(english, "zebra")},
        {"common word", textWith(english, "the ")},
        {"one byte", textWith(english, "e")},
        {"two bytes, frequent", textWith(english, "e ")},
        {"all a, needle aaaaaaab", textWith(repeated<'a'>, "aaaaaaab")},
        {"all a, needle aaaaaaaa", textWith(repeated<'a'>, "aaaaaaaa")}}},
      {group,
       "hex dump",
       "HexstringZQV",
       7,
       Opens::kBytes,
       Builds::kASCII,
       {{"one line, spacers", dump(0, "", "", ":")}, {"lines of 16 bytes", dump(16, "  ", "\r\n", " ")}},
       {20, 256, 4096, 65536}},
      {group, "ASCII test", "IsASCIIStringZQV", 1, Opens::kBytes, Builds::kNothing, {{"ASCII", text(plainEnglish)}}},
      {group,
       "printable test",
       "IsASCIIStringZQV",
       2,
       Opens::kBytes,
       Builds::kNothing,
       {{"printable", text(letters, {1})}}},
      {group,
       "replace non-printables",
       "ReplaceNonPrintableCharactersZQV",
       2,
       Opens::kBytes,
       Builds::kASCII,
       {{"printable", text(letters, {46})},
        {"French", text(french, {46})},
        {"random bytes", text(bytes, {46}, kEncodingNone)}}},
      {group,
       "SQL booleans",
       "SQLReplaceBooleanZQV",
       1,
       Opens::kUTF8,
       Builds::kUTF8,
       {{"prose", text(plainEnglish)}, {"statements", text(sqlStatements)}, {"all booleans", text(sqlBooleans)}}},
  };
}
