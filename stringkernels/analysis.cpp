/// The public functions for bits and analysis.
#include "analysis/character_classes.h"
#include "analysis/comparison.h"
#include "analysis/counting.h"
#include "analysis/hex_dump.h"
#include "analysis/jaro_winkler.h"
#include "analysis/levenshtein.h"
#include "analysis/number_format.h"
#include "analysis/sql_booleans.h"
#include "analysis/unicode_markers.h"
#include "bytes/bitwise.h"
#include "stringkernels/results.h"
#include "stringkernels/stringkernels.h"
#include "stringkernels/utf8.h"
#include "wide/ascii_scan.h"

namespace stringkernels {

std::string combine(BitOperation operation, std::string_view bytes, std::string_view mask, std::int32_t offset) {
  constexpr bitwise::Operation kOperations[] = {bitwise::Operation::kAnd, bitwise::Operation::kOr,
                                                bitwise::Operation::kXor, bitwise::Operation::kXorPosition};
  const ByteView input = bytesOf(bytes);
  const ByteView partner = bytesOf(mask);
  if (partner.empty()) return std::string(bytes);
  return written(std::ssize(input), [&](ByteSpan out) {
    bitwise::combine(kOperations[static_cast<int>(operation)], input, partner, offset, out);
    return out.size();
  });
}

std::int64_t editDistance(std::string_view a, std::string_view b) {
  (void)bytesOf(a), (void)bytesOf(b);
  const std::u32string first = toUtf32(a);
  const std::u32string second = toUtf32(b);
  if (first.empty() || second.empty()) return std::ssize(first) + std::ssize(second);
  if (levenshtein::matrixSize(first, second) > kMaxSize) {
    throw std::length_error("stringkernels: texts too long for their distance");
  }
  const std::int64_t distance = levenshtein::distance(first, second);
  if (distance == levenshtein::kNoMemory) throw std::bad_alloc();
  return distance;
}

double jaroWinklerDistance(std::string_view a, std::string_view b) {
  (void)bytesOf(a), (void)bytesOf(b);
  const jaro_winkler::Result result = jaro_winkler::distance(toUtf32(a), toUtf32(b));
  if (result.shortage != jaro_winkler::Shortage::kNone) throw std::bad_alloc();
  return result.distance;
}

int compareBytes(std::string_view a, std::string_view b) {
  return comparison::compareZeroExtended(bytesOf(a), bytesOf(b));
}

std::int64_t countOccurrences(std::string_view bytes, std::string_view pattern) {
  return counting::count(bytesOf(bytes), bytesOf(pattern));
}

bool isAscii(std::string_view bytes) { return ascii::isAscii(bytesOf(bytes)); }

bool isPrintableAscii(std::string_view bytes) { return character_classes::arePrintable(bytesOf(bytes)); }

std::string replaceUnprintable(std::string_view bytes, char replacement) {
  const ByteView input = bytesOf(bytes);
  return written(std::ssize(input), [&](ByteSpan out) {
    character_classes::replaceNonPrintable(input, static_cast<std::uint8_t>(replacement), out);
    return out.size();
  });
}

std::string hexDump(std::string_view bytes, const HexDumpLayout& layout) {
  const ByteView input = bytesOf(bytes);
  if (input.empty() || layout.groupDigits < 1 || layout.lineGroups < 1) return {};
  const hex_dump::Layout lines = {layout.groupDigits,      layout.lineGroups,      bytesOf(layout.lineStart),
                                  bytesOf(layout.lineEnd), bytesOf(layout.spacer), bytesOf(layout.filler)};
  if (hex_dump::digitCount(std::ssize(input), lines) > kMaxSize) refuseLength();
  return written(hex_dump::size(std::ssize(input), lines), [&](ByteSpan out) {
    hex_dump::write(input, lines, out);
    return out.size();
  });
}

std::string replaceSqlBooleans(std::string_view sql) {
  const ByteView input = bytesOf(sql);
  return written(std::ssize(input), [&](ByteSpan out) { return sql_booleans::replace(input, out); });
}

ByteOrderMark detectByteOrderMark(std::string_view bytes) {
  return static_cast<ByteOrderMark>(unicode_markers::detect(bytesOf(bytes)));
}

std::string formatFixed(double value) {
  number_format::Text text;
  return {text.data(), number_format::writeFixed(value, text)};
}

std::string formatScientific(double value, std::int32_t decimals) {
  number_format::Text text;
  return {text.data(), number_format::writeScientific(value, decimals, text)};
}

}  // namespace stringkernels
