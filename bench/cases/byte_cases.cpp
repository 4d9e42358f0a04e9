/// The methods on byte strings.
#include "bench/cases/inputs.h"

using namespace corpus;
using inputs::parts;
using inputs::textWith;

namespace {

const std::string kMask = "\x5A\xC3\x17\x88\x21";

/// Data and a mask of the same length.
MakeInput sameLength(std::vector<std::int32_t> integers = {}) {
  return [=](std::size_t size, Random& random) {
    return Input{{{bytes(size, random), kEncodingNone}, {bytes(size, random), kEncodingNone}}, integers, {}};
  };
}

MakeInput length(std::int32_t ascii) {
  return [=](std::size_t size, Random&) { return Input{{}, {static_cast<std::int32_t>(size), ascii}, {}}; };
}

}  // namespace

std::vector<Case> byteCases() {
  const std::string group = "Bytes";
  return {
      {group,
       "AND",
       "StringANDZQV",
       2,
       Opens::kBytes,
       Builds::kBinary,
       {{"mask of 1", textWith(bytes, "\x5A")}, {"mask of 5", textWith(bytes, kMask)}, {"mask as long", sameLength()}}},
      {group, "OR", "StringORZQV", 2, Opens::kBytes, Builds::kBinary, {{"mask of 5", textWith(bytes, kMask)}}},
      {group,
       "XOR",
       "StringXORZQV",
       3,
       Opens::kBytes,
       Builds::kBinary,
       {{"mask of 1", textWith(bytes, "\x5A", {0})},
        {"mask of 5", textWith(bytes, kMask, {2})},
        {"mask as long", sameLength({0})}}},
      {group, "XOR2", "StringXOR2ZQV", 3, Opens::kBytes, Builds::kBinary, {{"mask of 5", textWith(bytes, kMask, {2})}}},
      {group,
       "concatenation",
       "ConcatBinaryStringsZQV",
       2,
       Opens::kBytes,
       Builds::kBinary,
       {{"two halves", parts(bytes, 2)}}},
      {group,
       "concatenation of six",
       "ConcatBinaryStringsZQV",
       6,
       Opens::kBytes,
       Builds::kBinary,
       {{"six parts", parts(letters, 6)}}},
      {group,
       "random bytes",
       "RandomBytesStringZQV",
       2,
       Opens::kNothing,
       Builds::kBinary,
       {{"all bytes", length(0)}, {"ASCII", length(1)}},
       {20, 256, 4096, 65536}},
  };
}
