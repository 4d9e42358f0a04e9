/// Every method in hosts of every kind, on seeded random input: the results are those of the plain twins, nothing
/// beyond the end of an argument is read, all references are given back.
#include <doctest/doctest.h>
#include <set>

#include "fuzz/trial.h"
#include "tests/support/random_bytes.h"

using namespace std::string_view_literals;

namespace {

/// What means something to one method or another, and runs of what means nothing to any.
constexpr std::string_view kPieces[] = {
    "&lt;", "&#65;", "&eacute", "&",     "<b>",   "<",    ">",       "\"'",  "%41",
    "%",    "+",     "=3D",     "=",     "=\r\n", "\r\n", "\\n",     "\\",   "'true'",
    "TRUE", " fals", "false",   "hello", "a",     "\0"sv, "\x7F",    "\x80", "\xC3\xA9",
    "é€",   "😀",     "\t",      " ",     "4a4B",  "z",    "\uFEFFx", "abab", "some plain words",
};

/// Host, overload, numbers and the marks of the texts are one random byte each, or a few; then come pieces.
std::string randomInput(RandomBytes& random) {
  std::string input = random(4 + random.below(10));
  for (std::size_t count = random.below(14); count > 0; --count) {
    input += random.below(8) == 0 ? random(random.below(40)) : kPieces[random.below(std::size(kPieces))];
  }
  return input;
}

}  // namespace

TEST_CASE("every method gives what its plain twin gives, on hosts of every kind") {
  std::set<std::string> names;
  const standin::Session session;
  for (const standin::Method& method : session.methods()) names.insert(method.declaration.name);
  RandomBytes random(50);
  for (const std::string& name : names) {
    for (int i = 0; i < 600; ++i) {
      const std::string input = randomInput(random);
      const fuzz::Trial trial =
          fuzz::readTrial(name, {reinterpret_cast<const std::uint8_t*>(input.data()), input.size()});
      const std::string complaint = fuzz::complaintAbout(trial);
      if (!complaint.empty()) FAIL_CHECK(complaint << "\n" << fuzz::describe(trial));
    }
  }
}
