/// Kernels on byte strings.
#include "bench/kernels/kernel.h"
#include "bytes/bitwise.h"
#include "bytes/concatenation.h"

namespace {

template <bitwise::Operation operation>
std::int64_t combine(const Operands& in) {
  const std::int32_t offset = in.integers.empty() ? 0 : in.integers[0];
  bitwise::combine(operation, in.first(), in.bytes[1], offset, in.scratch.first(in.first().size()));
  return 0;
}

/// The twin works with a mask that is spread beforehand or as long as the data; only the latter is timed.
template <bitwise::Operation operation>
std::int64_t combinePlainly(const Operands& in) {
  const ByteView mask = in.bytes[1].size() >= in.first().size() ? in.bytes[1] : in.first();
  bitwise::scalar::combine(operation, in.first(), {mask.data(), mask.size()}, 0, in.scratch.data());
  return 0;
}

std::int64_t join(const Operands& in) {
  const std::span<const ByteView> parts(in.bytes, in.count);
  const std::int64_t size = concatenation::joinedSize(parts);
  concatenation::join(parts, in.scratch.first(static_cast<std::size_t>(size)));
  return size;
}

using bitwise::Operation;

const KernelLines lines{
    {"AND", "kernel", combine<Operation::kAnd>},
    {"AND", "plain", combinePlainly<Operation::kAnd>},
    {"OR", "kernel", combine<Operation::kOr>},
    {"OR", "plain", combinePlainly<Operation::kOr>},
    {"XOR", "kernel", combine<Operation::kXor>},
    {"XOR", "plain", combinePlainly<Operation::kXor>},
    {"XOR2", "kernel", combine<Operation::kXorPosition>},
    {"XOR2", "plain", combinePlainly<Operation::kXorPosition>},
    {"concatenation", "kernel", join},
    {"concatenation of six", "kernel", join},
};

}  // namespace
