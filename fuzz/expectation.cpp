#include "fuzz/expectation.h"

#include <algorithm>
#include <functional>
#include <map>
#include <stdexcept>
#include <string_view>

#include "fuzz/forms.h"
#include "fuzz/trial.h"
#include "standin/transcode.h"
#include "tests/reference/bitwise.h"
#include "tests/reference/charsets.h"
#include "tests/reference/comparison.h"
#include "tests/reference/counting.h"
#include "tests/reference/distances.h"
#include "tests/reference/email_subject.h"
#include "tests/reference/hex.h"
#include "tests/reference/hex_dump.h"
#include "tests/reference/markup.h"
#include "tests/reference/mysql.h"
#include "tests/reference/number_format.h"
#include "tests/reference/quoted_printable.h"
#include "tests/reference/sql_booleans.h"
#include "tests/reference/url.h"
#include "tests/reference/yenc.h"

namespace fuzz {
namespace {

using namespace standin;  // NOLINT: the vocabulary of calls
using namespace std::string_view_literals;

/// What an expectation is computed from.
struct Call {
  const Trial& trial;
  const Outcome& outcome;

  [[nodiscard]] const Host& host() const { return trial.host(); }
  [[nodiscard]] std::size_t count() const { return trial.arguments.size(); }
  [[nodiscard]] const Text& text(std::size_t i) const { return std::get<Text>(trial.arguments[i]); }
  [[nodiscard]] const std::string& bytes(std::size_t i) const { return text(i).bytes; }
  [[nodiscard]] std::int32_t integer(std::size_t i) const {
    return i < count() ? std::get<std::int32_t>(trial.arguments[i]) : 0;
  }
  [[nodiscard]] std::string utf8(std::size_t i) const { return utf8Form(host(), text(i)); }
  [[nodiscard]] std::u32string utf32(std::size_t i) const { return utf32Form(host(), text(i)); }
};

Expectation ascii(std::string_view bytes) { return {.result = built(bytes, kEncodingASCII)}; }
Expectation octets(std::string_view bytes) { return {.result = built(bytes, kEncodingNone)}; }
Expectation text8(std::string_view bytes) { return {.result = built(bytes, kEncodingUTF8)}; }
Expectation number(std::int64_t value) { return {.result = value}; }
Expectation truth(bool value) { return {.result = value}; }

template <typename Characters>
Characters beforeZero(const Characters& text) {
  return text.substr(0, text.find(typename Characters::value_type{}));
}

std::u32string_view withoutMark(std::u32string_view text) {
  return text.substr(text.starts_with(U'\uFEFF') || text.starts_with(char32_t{0xFFFE}) ? 1 : 0);
}

bool within(std::string_view bytes, unsigned first, unsigned last) {
  return std::all_of(bytes.begin(), bytes.end(), [&](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= first && byte <= last;
  });
}

// --- Codecs

Expectation emailSubject(const Call& call) {
  if (call.text(0).null) return ascii("");
  const bool refused = call.text(0).encoding != kEncodingNone && !isKnown(call.text(0).encoding);
  if (refused) return ascii("");
  const std::string subject = beforeZero(call.utf8(0));
  if (within(subject, 0x20, 0x7F)) return {.sameArgument = true};
  return ascii(reference::encodedWord(subject));
}

Expectation yencBlock(const Call& call) {
  const auto& given = std::get<Block>(call.trial.arguments[0]);
  const Block decoded = given.bytes.empty() ? nilBlock() : block(reference::yencDecoded(given.bytes));
  return {.result = decoded};
}

Expectation toCharset(const Call& call, const CharacterTable& table) {
  const std::u16string units = utf16Form(call.host(), call.text(0));
  return octets(units.size() < 3 ? "" : reference::charsetEncoded(units, table));
}

Expectation fromCharset(const Call& call, const CharacterTable& table) {
  return {.result = built(reference::charsetDecoded(call.bytes(0), table))};
}

// --- Markup

Expectation html(const Call& call) {
  const std::u32string text = call.utf32(0);
  if (text.empty()) return ascii("");
  if (!reference::needsHtmlEncoding(text)) return {.sameArgument = true};
  return ascii(reference::htmlEncoded(withoutMark(text), (call.integer(1) & 1) != 0));
}

Expectation xml(const Call& call) {
  const std::u32string text = call.utf32(0);
  if (text.empty()) return ascii("");
  if (!reference::needsXmlEncoding(text)) return {.sameArgument = true};
  return {.result = built(call.host(), reference::xmlEncoded(withoutMark(text), (call.integer(1) & 1) != 0))};
}

Expectation entities(const Call& call) {
  const std::u32string text = call.utf32(0);
  return {.result = built(call.host(), reference::entitiesDecoded(withoutMark(text)))};
}

Expectation ready(const Call& call) {
  const Text& text = call.text(0);
  constexpr TextEncoding kExtendAscii[] = {kEncodingMacRoman, kEncodingWindowsLatin1, kEncodingASCII, kEncodingUTF8};
  const bool extendsAscii =
      std::find(std::begin(kExtendAscii), std::end(kExtendAscii), text.encoding) != std::end(kExtendAscii);
  return truth(text.null || (extendsAscii && reference::isReady(text.bytes)));
}

// --- Bytes

Expectation bitwise(const Call& call, bitwise::Operation operation) {
  if (call.bytes(0).empty() || call.bytes(1).empty()) return octets("");
  return octets(reference::combined(operation, call.bytes(0), call.bytes(1), call.integer(2)));
}

Expectation concatenation(const Call& call) {
  std::string joined;
  for (std::size_t i = 0; i < call.count(); ++i) joined += call.bytes(i);
  return octets(joined);
}

/// Random bytes may be anything: only their number, range and mark are known.
Expectation random(const Call& call) {
  const bool ascii = std::get<bool>(call.trial.arguments[1]);
  const std::string& bytes = call.outcome.text().bytes;
  const auto length = static_cast<std::size_t>(std::max(call.integer(0), std::int32_t{0}));
  const bool fits = bytes.size() == length && (!ascii || within(bytes, 0x20, 0x7F));
  return {.result = built(fits ? bytes : "not as many, or out of range", ascii ? kEncodingASCII : kEncodingNone)};
}

// --- Analysis

Expectation comparedBytes(const Call& call) {
  const std::string& a = call.bytes(0);
  const std::string& b = call.bytes(1);
  if (a.empty() || b.empty()) return number(static_cast<int>(!a.empty()) - static_cast<int>(!b.empty()));
  return number(reference::compared(a, b));
}

Expectation comparedCharacters(const Call& call) {
  const auto mark = [&](const Text& text) { return text.null ? kEncodingNone : text.encoding; };
  if (mark(call.text(0)) == mark(call.text(1))) return comparedBytes(call);
  return number(reference::compared(call.utf8(0), call.utf8(1)));
}

Expectation levenshtein(const Call& call) {
  const std::u32string a = call.utf32(0);
  const std::u32string b = call.utf32(1);
  if (a.empty() || b.empty()) return {.result = 1.0};
  const auto distance = static_cast<double>(reference::levenshtein(a, b));
  return {.result = 1.0 / (static_cast<double>(std::min(a.size(), b.size())) / distance)};
}

Expectation hexDump(const Call& call) {
  const std::int64_t group = call.integer(1);
  const std::int64_t groups = call.integer(2);
  if (call.bytes(0).empty() || group < 1 || groups < 1) return ascii("");
  if (group * groups > INT32_MAX) return {.result = nullText(), .exception = "RuntimeException"};
  return ascii(reference::hexDump(call.bytes(0), {static_cast<std::size_t>(group), static_cast<std::size_t>(groups),
                                                  call.bytes(3), call.bytes(4), call.bytes(5), call.bytes(6)}));
}

Expectation asciiTest(const Call& call) {
  const std::string& bytes = call.bytes(0);
  const std::int32_t mode = call.integer(1);
  const bool fits = (mode == 0 && within(bytes, 0, 0x7F)) || (mode == 1 && within(bytes, 0x20, 0x7F)) ||
                    (mode == 2 && within(bytes, 0x20, 0xFF));
  return truth(!bytes.empty() && fits);
}

Expectation printable(const Call& call) {
  std::string bytes = call.bytes(0);
  for (char& c : bytes) {
    if (c < 0x20 || static_cast<unsigned char>(c) > 0x7F) c = static_cast<char>(call.integer(1));
  }
  return ascii(bytes);
}

constexpr std::string_view kMarks[] = {""sv,         "\xEF\xBB\xBF"sv, "\xFF\xFE"sv,     "\xFE\xFF"sv,
                                       "\xFF\xFE"sv, "\xFF\xFE\0\0"sv, "\0\0\xFE\xFF"sv, "\xFF\xFE\0\0"sv};

/// The longest mark wins; of equal ones the last, which names the byte order.
Expectation detectedMark(const Call& call) {
  std::size_t kind = 0;
  for (std::size_t i = 1; i < std::size(kMarks); ++i) {
    if (call.bytes(0).starts_with(kMarks[i]) && kMarks[i].size() >= kMarks[kind].size()) kind = i;
  }
  return number(static_cast<std::int64_t>(kind));
}

/// The bytes of a kind's mark, read as text by the host.
Expectation mark(const Call& call) {
  switch (call.integer(0)) {
    case 1:
      return text8(kMarks[1]);
    case 2:
    case 4:
      return {.result = built(u"\uFEFF")};
    case 3:
      return {.result = built(std::u16string_view(u"\xFFFE"))};
    case 5:
    case 7:
      return {.result = built(call.host(), U"\uFEFF")};
    case 6:
      return {.result = built(call.host(), std::u32string{0xFFFE'0000})};
    default:
      return octets("");
  }
}

Expectation converted(const Call& call, TextEncoding encoding) {
  const Text& text = call.text(0);
  auto form = text.null ? std::nullopt : transcode(text.bytes, text.encoding, encoding);
  if (form) call.host().dress(*form, encoding);
  return {.result = marked(form.value_or(""), encoding)};
}

using Oracle = std::function<Expectation(const Call&)>;

const std::map<std::string_view, Oracle> kOracles = {
    {"EncodeEmailSubjectZQV", emailSubject},
    {"_yDecodeMemoryZQV", yencBlock},
    {"_yDecodeStringZQV", [](const Call& c) { return octets(reference::yencDecoded(c.bytes(0))); }},
    {"JaroWinklerDistanceZQV",
     [](const Call& c) { return Expectation{.result = reference::jaroWinkler(c.utf32(0), c.utf32(1))}; }},
    {"LevenshteinDistanceZQV", levenshtein},
    {"ScientificStrZQV",
     [](const Call& c) {
       const int digits = std::clamp(c.integer(1), std::int32_t{0}, std::int32_t{600});
       return ascii(reference::scientificNumber(std::get<double>(c.trial.arguments[0]), digits));
     }},
    {"StrZQV", [](const Call& c) { return ascii(reference::fixedNumber(std::get<double>(c.trial.arguments[0]))); }},
    {"RandomBytesStringZQV", random},
    {"StrCompBytesZQV", comparedBytes},
    {"StrCompCharactersZQV", comparedCharacters},
    {"CountOccurancesZQV", [](const Call& c) { return number(reference::count(c.bytes(0), c.bytes(1))); }},
    {"DetectUnicodeMarkersZQV", detectedMark},
    {"GetUnicodeMarkersZQV", mark},
    {"StringIsHTMLreadyZQV", ready},
    {"StringIsXMLreadyZQV", ready},
    {"StringANDZQV", [](const Call& c) { return bitwise(c, bitwise::Operation::kAnd); }},
    {"StringORZQV", [](const Call& c) { return bitwise(c, bitwise::Operation::kOr); }},
    {"StringXORZQV", [](const Call& c) { return bitwise(c, bitwise::Operation::kXor); }},
    {"StringXOR2ZQV", [](const Call& c) { return bitwise(c, bitwise::Operation::kXorPosition); }},
    {"UnicodeStringZQV", [](const Call& c) { return converted(c, kEncodingUTF16); }},
    {"NativeStringZQV", [](const Call& c) { return converted(c, kEncodingUTF8); }},
    {"DecodingFromMySQLZQV", [](const Call& c) { return octets(reference::mysqlDecoded(c.bytes(0))); }},
    {"EncodingToHTMLZQV", html},
    {"DecodingFromHTMLZQV", entities},
    {"EncodingToXMLZQV", xml},
    {"DecodingFromXMLZQV", entities},
    {"EncodingToURLZQV", [](const Call& c) { return ascii(reference::urlEncoded(c.bytes(0), c.integer(1) & 3)); }},
    {"DecodingFromURLZQV", [](const Call& c) { return octets(reference::urlDecoded(c.bytes(0), c.integer(1) & 3)); }},
    {"EncodingToQuotedPrintableZQV",
     [](const Call& c) { return ascii(reference::quotedPrintableEncoded(c.bytes(0), c.integer(1))); }},
    {"DecodingFromQuotedPrintableZQV",
     [](const Call& c) { return ascii(reference::quotedPrintableDecoded(c.bytes(0))); }},
    {"HexstringZQV", hexDump},
    {"EncodingToISO8859ZQV", [](const Call& c) { return toCharset(c, escapecharsISO8859); }},
    {"DecodingFromISO8859ZQV", [](const Call& c) { return fromCharset(c, escapecharsISO8859); }},
    {"EncodingToCP1252ZQV", [](const Call& c) { return toCharset(c, escapecharsCP1252); }},
    {"DecodingFromCP1252ZQV", [](const Call& c) { return fromCharset(c, escapecharsCP1252); }},
    {"EncodingToHexZQV", [](const Call& c) { return ascii(reference::hexEncoded(c.bytes(0))); }},
    {"DecodingFromHexZQV", [](const Call& c) { return octets(reference::hexDecoded(asciiForm(c.host(), c.text(0)))); }},
    {"ReplaceNonPrintableCharactersZQV", printable},
    {"IsASCIIStringZQV", asciiTest},
    {"RemoveHTMLTagsZQV", [](const Call& c) { return text8(reference::withoutTags(c.utf8(0))); }},
    {"RemoveHTMLTagsWithZQV",
     [](const Call& c) { return text8(reference::withoutTags(c.utf8(0), beforeZero(c.utf8(1)))); }},
    {"ConcatBinaryStringsZQV", concatenation},
    {"SQLReplaceBooleanZQV", [](const Call& c) { return text8(reference::booleansReplaced(beforeZero(c.utf8(0)))); }},
};

}  // namespace

Expectation expectationOf(const Trial& trial, const Outcome& outcome) {
  const auto found = kOracles.find(trial.method->declaration.name);
  if (found == kOracles.end()) throw std::logic_error(trial.method->declaration.name + ": nothing to compare with");
  return found->second(Call{trial, outcome});
}

}  // namespace fuzz
