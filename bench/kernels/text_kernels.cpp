/// Kernels that test, show and rewrite text, and write numbers.
#include "analysis/character_classes.h"
#include "analysis/hex_dump.h"
#include "analysis/number_format.h"
#include "analysis/sql_booleans.h"
#include "bench/kernels/kernel.h"
#include "wide/ascii_scan.h"

namespace {

template <auto holds>
std::int64_t test(const Operands& in) {
  return holds(in.first());
}

template <auto findNonAscii>
std::int64_t testAscii(const Operands& in) {
  return static_cast<std::int64_t>(findNonAscii(in.first()));
}

template <auto replaceNonPrintable>
std::int64_t replace(const Operands& in) {
  replaceNonPrintable(in.first(), static_cast<std::uint8_t>(in.integers[0]), in.scratch.first(in.first().size()));
  return 0;
}

template <auto write>
std::int64_t dump(const Operands& in) {
  const hex_dump::Layout layout{in.integers[0], in.integers[1], in.bytes[1], in.bytes[2], in.bytes[3], in.bytes[4]};
  const std::int64_t size = hex_dump::size(std::ssize(in.first()), layout);
  write(in.first(), layout, in.scratch.first(static_cast<std::size_t>(size)));
  return size;
}

std::int64_t rewriteSql(const Operands& in) {
  return static_cast<std::int64_t>(sql_booleans::replace(in.first(), in.scratch.first(in.first().size())));
}

std::int64_t rewriteSqlPlainly(const Operands& in) {
  sql_booleans::Progress progress;
  sql_booleans::scalar::rewrite(in.first(), in.scratch.first(in.first().size()), progress);
  return static_cast<std::int64_t>(progress.written);
}

template <auto write>
std::int64_t writeNumber(const Operands& in) {
  number_format::Text text;
  return static_cast<std::int64_t>(write(in.number, text));
}

std::int64_t writeScientific(const Operands& in) {
  number_format::Text text;
  return static_cast<std::int64_t>(number_format::writeScientific(in.number, in.integers[0], text));
}

namespace classes = character_classes;

const KernelLines lines{
    {"ASCII test", "kernel", testAscii<ascii::findNonAscii>},
    {"ASCII test", "plain", testAscii<ascii::scalar::findNonAscii>},
    {"printable test", "kernel", test<classes::arePrintable>},
    {"printable test", "plain", test<classes::scalar::arePrintable>},
    {"replace non-printables", "kernel", replace<classes::replaceNonPrintable>},
    {"replace non-printables", "plain", replace<classes::scalar::replaceNonPrintable>},
    {"hex dump", "kernel", dump<hex_dump::write>},
    {"hex dump", "plain", dump<hex_dump::scalar::write>},
    {"SQL booleans", "kernel", rewriteSql},
    {"SQL booleans", "plain", rewriteSqlPlainly},
    {"Str", "kernel", writeNumber<number_format::writeFixed>},
    {"Str", "plain", writeNumber<number_format::general::writeFixed>},
    {"Scientific", "kernel", writeScientific},
};

}  // namespace
