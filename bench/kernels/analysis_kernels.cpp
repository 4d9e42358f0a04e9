/// Kernels that compare, measure and count.
#include "analysis/comparison.h"
#include "analysis/counting.h"
#include "analysis/jaro_winkler.h"
#include "analysis/levenshtein.h"
#include "bench/kernels/kernel.h"

namespace {

std::int64_t compare(const Operands& in) { return comparison::compareZeroExtended(in.first(), in.bytes[1]); }

template <auto function>
std::int64_t count(const Operands& in) {
  return function(in.first(), in.bytes[1]);
}

template <auto function>
std::int64_t editDistance(const Operands& in) {
  return function(in.utf32, in.secondUtf32);
}

std::int64_t matchingDistance(const Operands& in) {
  return static_cast<std::int64_t>(1e6 * jaro_winkler::distance(in.utf32, in.secondUtf32).distance);
}

const KernelLines lines{
    {"compare bytes", "kernel", compare},
    {"compare characters", "kernel", compare},
    {"count", "kernel", count<counting::count>},
    {"count", "plain", count<counting::scalar::count>},
    {"Levenshtein", "kernel", editDistance<levenshtein::distance>},
    {"Levenshtein", "plain", editDistance<levenshtein::scalar::distance>},
    {"Jaro-Winkler", "kernel", matchingDistance},
};

}  // namespace
