#include "bench/report/targets.h"

#include <algorithm>
#include <cstring>

#include "bench/report/figures.h"
#include "wide/cpu.h"

namespace {

/// What a target is about.
enum class Measure {
  kAgainstPeer,  ///< speed against the best peer
  kShare,        ///< of the speed of memcpy
  kAboveHost,    ///< nanoseconds above opening and building alone; at most
  kTime,         ///< nanoseconds; at most
};

struct Target {
  const char* job;
  const char* corpus;
  std::size_t size;
  Measure measure;
  double value;
};

constexpr std::size_t kShort = 20;
constexpr std::size_t kLong = 65536;
constexpr double kLevel = 1;

constexpr auto kPeer = Measure::kAgainstPeer;
constexpr auto kShare = Measure::kShare;
constexpr auto kAbove = Measure::kAboveHost;
constexpr auto kTime = Measure::kTime;

constexpr Target kTargets[] = {
    {"HTML encode", "nothing to do", kLong, kPeer, 10},
    {"HTML encode", "nothing to do", kLong, kShare, 0.42},
    {"HTML encode", "nothing to do", kShort, kPeer, kLevel},
    {"HTML encode", "markup", kLong, kPeer, 1.8},
    {"HTML encode", "markup", kShort, kPeer, kLevel},
    {"HTML encode, markup kept", "markup", kLong, kPeer, 14},
    {"HTML encode", "French", kLong, kPeer, 4},
    {"HTML encode", "French", kShort, kPeer, kLevel},
    {"HTML encode", "Chinese", kLong, kPeer, 28},
    {"HTML encode", "Chinese", kShort, kPeer, kLevel},
    {"XML encode", "nothing to do", kLong, kPeer, 10},
    {"XML encode", "nothing to do", kLong, kShare, 0.42},
    {"XML encode", "markup", kLong, kPeer, 2},
    {"XML encode", "markup", kShort, kPeer, kLevel},
    {"XML encode", "French", kLong, kPeer, 2},
    {"XML encode", "Chinese", kLong, kPeer, 25},
    {"entity decode", "no references", kLong, kPeer, 2},
    {"entity decode", "no references", kShort, kPeer, 1.2},
    {"entity decode", "sparse", kLong, kPeer, 2.6},
    {"entity decode", "sparse", kShort, kPeer, 1.2},
    {"entity decode", "dense", kLong, kPeer, 1.9},
    {"entity decode", "dense", kShort, kPeer, 1.2},
    {"HTML readiness", "ready", kShort, kAbove, 5},
    {"ASCII test", "ASCII", kLong, kShare, 2},
    {"ASCII test", "ASCII", kShort, kAbove, 5},
    {"tag removal", "markup", kLong, kShare, 0.06},
    {"tag removal", "no tags", kLong, kShare, 0.3},
    {"tag removal", "markup", kShort, kAbove, 38},
    {"hex encode", "random bytes", kLong, kPeer, 9},
    {"hex encode", "random bytes", kLong, kShare, 0.25},
    {"hex encode", "random bytes", kShort, kAbove, 18},
    {"hex decode", "digits", kLong, kPeer, 9},
    {"hex decode", "digits", kLong, kShare, 0.4},
    {"hex decode", "digits", kShort, kPeer, kLevel},
    {"from ISO-8859-1", "ASCII", kLong, kShare, 0.27},
    {"from ISO-8859-1", "French", kShort, kPeer, 1.1},
    {"from Windows-1252", "French", kLong, kPeer, 3},
    {"from Windows-1252", "ASCII", kLong, kShare, 0.2},
    {"from Windows-1252", "French", kShort, kPeer, 1.2},
    {"to ISO-8859-1", "French", kLong, kPeer, 3},
    {"to ISO-8859-1", "French", kLong, kShare, 0.18},
    {"to ISO-8859-1", "French", kShort, kPeer, 1.5},
    {"to Windows-1252", "French", kLong, kPeer, 9},
    {"to Windows-1252", "French", kLong, kShare, 0.14},
    {"to Windows-1252", "French", kShort, kPeer, 1.1},
    {"URL encode", "query", kLong, kPeer, 9},
    {"URL encode", "query", kShort, kPeer, 1.9},
    {"URL encode", "English", kLong, kPeer, 20},
    {"URL encode", "English", kShort, kPeer, 1.9},
    {"URL encode", "all escaped", kLong, kPeer, 3.5},
    {"URL encode", "all escaped", kShort, kPeer, 1.9},
    {"URL decode", "query", kLong, kPeer, 3.8},
    {"URL decode", "query", kShort, kPeer, kLevel},
    {"URL decode", "all escaped", kLong, kPeer, 3.5},
    {"URL decode", "all escaped", kShort, kPeer, kLevel},
    {"URL decode", "nothing to do", kLong, kPeer, 8},
    {"URL decode", "nothing to do", kShort, kPeer, kLevel},
    {"quoted-printable encode", "English", kLong, kPeer, 5},
    {"quoted-printable encode", "mail", kLong, kPeer, 5},
    {"quoted-printable encode", "English", kShort, kPeer, kLevel},
    {"quoted-printable decode", "English", kLong, kPeer, 1.8},
    {"quoted-printable decode", "mail", kLong, kPeer, 3.5},
    {"quoted-printable decode", "mail", kShort, kPeer, 1.1},
    {"e-mail subject", "French", kLong, kPeer, 100},
    {"e-mail subject", "French", kLong, kShare, 0.09},
    {"e-mail subject", "French", kShort, kAbove, 22},
    {"yEnc decode", "data", kLong, kShare, 0.28},
    {"yEnc decode, memory block", "data", kLong, kShare, 0.18},
    {"MySQL unescape", "text", kLong, kPeer, 4.7},
    {"MySQL unescape", "text", kShort, kPeer, kLevel},
    {"MySQL unescape", "no escapes", kLong, kPeer, 11},
    {"MySQL unescape", "no escapes", kLong, kShare, 0.27},
    {"AND", "mask of 5", kLong, kShare, 0.4},
    {"AND", "mask of 5", kShort, kAbove, 39},
    {"OR", "mask of 5", kLong, kShare, 0.4},
    {"XOR", "mask of 5", kLong, kShare, 0.4},
    {"XOR", "mask as long", kLong, kShare, 0.4},
    {"XOR2", "mask of 5", kLong, kShare, 0.33},
    {"XOR2", "mask of 5", kShort, kAbove, 39},
    {"concatenation", "two halves", kShort, kAbove, 5},
    {"Levenshtein", "Latin, alike", 8, kTime, 93},
    {"Levenshtein", "Latin, alike", 64, kTime, 400},
    {"Levenshtein", "Latin, alike", 256, kTime, 2300},
    {"Levenshtein", "Latin, alike", 2000, kTime, 110e3},
    {"Levenshtein", "Latin, alike", 10000, kTime, 2.9e6},
    {"Levenshtein", "Chinese, alike", 10000, kPeer, 2.5},
    {"Levenshtein", "Latin, alike", 8, kPeer, 1.4},
    {"Jaro-Winkler", "Latin, alike", 8, kTime, 120},
    {"Jaro-Winkler", "Latin, alike", 1000, kTime, 4500},
    {"Jaro-Winkler", "Latin, alike", 10000, kTime, 55e3},
    {"Jaro-Winkler", "Latin, alike", 8, kPeer, 1.2},
    {"compare bytes", "equal", kLong, kPeer, kLevel},
    {"compare bytes", "equal", kShort, kAbove, 9},
    {"compare characters", "equal", kShort, kAbove, 9},
    {"count", "rare word", kLong, kPeer, kLevel},
    {"count", "rare word", kShort, kPeer, kLevel},
    {"count", "common word", kLong, kPeer, 1.2},
    {"count", "two bytes, frequent", kLong, kPeer, 15},
    {"count", "all a, needle aaaaaaaa", kLong, kPeer, 1.5},
    {"hex dump", "one line, spacers", kLong, kPeer, 3},
    {"hex dump", "one line, spacers", kShort, kAbove, 31},
    {"replace non-printables", "French", kLong, kPeer, 3.8},
    {"replace non-printables", "French", kLong, kShare, 0.46},
    {"replace non-printables", "French", kShort, kAbove, 12},
    {"SQL booleans", "statements", kLong, kShare, 0.07},
    {"SQL booleans", "prose", kLong, kShare, 0.16},
    {"SQL booleans", "statements", kShort, kAbove, 38},
    {"Str", "whole numbers", 1, kPeer, 2},
    {"Str", "prices", 1, kPeer, 1.8},
    {"Str", "mix", 1, kPeer, 1.3},
    {"Scientific", "6 digits", 1, kPeer, kLevel},
    {"Scientific", "15 digits", 1, kPeer, kLevel},
};

struct Reason {
  const char* job;
  const char* corpus;  ///< null: on every one
  std::size_t most;    ///< up to this size
  const char* text;
};

constexpr std::size_t kAnySize = ~std::size_t{0};

constexpr const char* kMostlyHost = "opening and building are most of the call";
constexpr const char* kThroughUtf16 = "the host is handed UTF-16 and converts it; the peer writes UTF-8 at once";
constexpr const char* kReadsUtf16 = "reads UTF-16, twice what the peer reads";
constexpr const char* kReadsUtf32 = "reads UTF-32, four times the bytes";
constexpr const char* kHostCopies = "half of it is the host's copy of the result";
constexpr const char* kTwoStores = "escapes come anywhere: two shuffles and two unaligned stores for 32 bytes";

/// The misses that are accepted, and why.
constexpr Reason kReasons[] = {
    {"HTML encode", "nothing to do", kAnySize, kReadsUtf32},
    {"HTML encode, markup kept", "markup", kAnySize, "reading the UTF-32 alone takes what the target allows"},
    {"XML encode", "nothing to do", kAnySize, kReadsUtf32},
    {"hex encode", nullptr, kAnySize, kHostCopies},
    {"from ISO-8859-1", nullptr, kShort, kMostlyHost},
    {"from Windows-1252", nullptr, kShort, kMostlyHost},
    {"from ISO-8859-1", nullptr, kAnySize, kThroughUtf16},
    {"from Windows-1252", nullptr, kAnySize, kThroughUtf16},
    {"to ISO-8859-1", "ASCII", kAnySize, kReadsUtf16},
    {"to Windows-1252", "ASCII", kAnySize, kReadsUtf16},
    {"URL encode", nullptr, kShort, kMostlyHost},
    {"URL encode", nullptr, kAnySize, kTwoStores},
    {"e-mail subject", nullptr, kAnySize, kTwoStores},
    {"yEnc decode", nullptr, kAnySize, "moves the kept bytes together, and the host copies the result"},
    {"MySQL unescape", "no escapes", kAnySize, kHostCopies},
    {"AND", nullptr, kShort, kMostlyHost},
    {"Jaro-Winkler", "Latin, alike", kShort, "opening takes nearly half of the call"},
    {"compare bytes", nullptr, kAnySize, "lies within a nanosecond or two of one call, which is memcmp itself"},
    {"compare characters", nullptr, 256, "asks the host for both encodings first"},
    {"count", "rare word", 4096, "memchr scans half again as fast while the text is in the nearest cache"},
    {"SQL booleans", "statements", kAnySize, "words come anywhere: about a mispredicted branch for 32 bytes"},
    {"concatenation", "two halves", kShort, "the two copies take four fifths of it"},
    {"hex dump", "one line, spacers", kShort, "lays out lines and spacers of any length; the peer knows its colon"},
    {"Str", "whole numbers", kAnySize, kMostlyHost},
    {"Str", "prices", kAnySize, "the kernel alone reaches it; opening and building take two fifths of the call"},
    {"Scientific", nullptr, kAnySize, "is std::to_chars itself, called through one function more"},
};

double reached(const Result& result, Measure measure) {
  switch (measure) {
    case Measure::kAgainstPeer:
      return result.againstPeer();
    case Measure::kShare:
      return result.againstCopy();
    case Measure::kAboveHost:
      return std::max(0.0, result.method().nanoseconds - result.find(Kind::kHost)->nanoseconds);
    case Measure::kTime:
      return result.method().nanoseconds;
  }
  return 0;
}

std::string written(double value, Measure measure) {
  switch (measure) {
    case Measure::kAgainstPeer:
      return figures::ratio(value);
    case Measure::kShare:
      return figures::share(value);
    case Measure::kAboveHost:
      return "+" + figures::time(value);
    case Measure::kTime:
      return figures::time(value);
  }
  return {};
}

bool hasWiderCopy() {
#ifdef WIDE_AVX512
  return cpu::hasAvx512();
#else
  return false;
#endif
}

/// Within what two runs of one thing differ by.
bool isMet(const Target& target, double value) {
  const bool isTime = target.measure == Measure::kAboveHost || target.measure == Measure::kTime;
  return isTime ? value * Result::kLevel <= target.value : value >= target.value * Result::kLevel;
}

/// What a target is missed for. A share of memcpy's speed depends on the registers that the C library moves with.
std::string excuse(const Result& result, Measure measure) {
  const std::string reason = reasonFor(result);
  if (!reason.empty()) return ": " + reason;
  const bool isByWidth = measure == Measure::kShare && hasWiderCopy();
  return isByWidth ? ": memcpy moves 64 bytes at a time on this CPU, the kernel 32" : "";
}

}  // namespace

std::string reasonFor(const Result& result) {
  for (const Reason& reason : kReasons) {
    const bool isOnCorpus = reason.corpus == nullptr || result.corpus == reason.corpus;
    if (result.job == reason.job && isOnCorpus && result.size <= reason.most) return reason.text;
  }
  return {};
}

std::string targetsSection(std::span<const Result> results) {
  std::string missed;
  std::string met;
  for (const Target& target : kTargets) {
    const auto found = std::ranges::find_if(results, [&](const Result& result) {
      return result.job == target.job && result.corpus == target.corpus && result.size == target.size;
    });
    if (found == results.end()) continue;
    const double value = reached(*found, target.measure);
    if (value == 0 && target.measure == Measure::kAgainstPeer) continue;  // the peer isn't there
    const bool isGood = isMet(target, value);
    const std::string start = "| " + found->job + " | " + found->corpus + " | " + sizeText(found->size, found->unit);
    (isGood ? met : missed) += start + " | " + written(target.value, target.measure) + " | " +
                               written(value, target.measure) + " | " +
                               (isGood ? "reached" : "missed" + excuse(*found, target.measure)) + " |\n";
  }
  if (missed.empty() && met.empty()) return {};
  return "## Targets\n\nWhat was aimed at before the code was written, and what is reached; a twentieth less counts as "
         "reached. × is against the best peer, m is the share of `memcpy`'s speed, + is what a call costs above "
         "opening and building.\n\n| Job | Input | Size | Target | Reached | |\n|---|---|--:|--:|--:|---|\n" +
         missed + met + "\n";
}
