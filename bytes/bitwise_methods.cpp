#include "bytes/bitwise.h"
#include "bytes/methods.h"
#include "host/build_string.h"
#include "host/rb_data.h"
#include "memory/work_buffer.h"

namespace {

REALstringStruct* combined(bitwise::Operation operation, REALstringStruct* data, REALstringStruct* mask,
                           std::int32_t offset) noexcept {
  if (data == nullptr || mask == nullptr) return nullptr;
  const rbData input(data);
  const rbData partner(mask);
  if (input.bytes().empty() || partner.bytes().empty()) return nullptr;
  const std::int64_t size = std::ssize(input.bytes());
  const WorkBuffer result(size, bitwise::describedSize(size));
  if (!result) return nullptr;
  bitwise::combine(operation, input.bytes(), partner.bytes(), offset, result.bytes());
  return REALBuildUnicodeString(result.data(), result.size(), kEncodingNone);
}

}  // namespace

REALstringStruct* StringAND(REALstringStruct* a, REALstringStruct* b) noexcept {
  return combined(bitwise::Operation::kAnd, a, b, 0);
}

REALstringStruct* StringOR(REALstringStruct* a, REALstringStruct* b) noexcept {
  return combined(bitwise::Operation::kOr, a, b, 0);
}

REALstringStruct* StringXOR(REALstringStruct* data, REALstringStruct* XorMask, std::int32_t MaskOffset) noexcept {
  return combined(bitwise::Operation::kXor, data, XorMask, MaskOffset);
}

REALstringStruct* StringXOR2(REALstringStruct* data, REALstringStruct* XorMask, std::int32_t MaskOffset) noexcept {
  return combined(bitwise::Operation::kXorPosition, data, XorMask, MaskOffset);
}
