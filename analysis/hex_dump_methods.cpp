/// The method for hex dumps.
#include <new>
#include <stdexcept>

#include "analysis/hex_dump.h"
#include "analysis/methods.h"
#include "host/build_string.h"
#include "host/exceptions.h"
#include "host/rb_data.h"
#include "memory/limits.h"
#include "memory/work_buffer.h"

namespace {

/// @throw std::length_error when the digits or the dump would have more than 2^31 - 1 bytes
/// @throw std::bad_alloc    when memory is short
REALstringStruct* dump(ByteView bytes, const hex_dump::Layout& layout) {
  const std::int64_t size = hex_dump::size(std::ssize(bytes), layout);
  if (hex_dump::digitCount(std::ssize(bytes), layout) > kMaxSize || size > kMaxSize) {
    throw std::length_error("The hex dump would be too long for a string.");
  }
  const WorkBuffer text(size);
  if (!text) throw std::bad_alloc();
  hex_dump::write(bytes, layout, text.bytes());
  return REALBuildUnicodeString(text.data(), text.size(), kEncodingASCII);
}

}  // namespace

REALstringStruct* Hexstring(REALstringStruct* input, std::int32_t hexlen, std::int32_t linelen,
                            REALstringStruct* linestart, REALstringStruct* lineend, REALstringStruct* spacer,
                            REALstringStruct* filler) noexcept {
  if (hexlen < 1 || linelen < 1 || input == nullptr) return nullptr;
  return raisingOnFailure([&] {
    const rbData bytes(input);
    const rbData lineStart(linestart);
    const rbData lineEnd(lineend);
    const rbData space(spacer);
    const rbData fill(filler);
    if (bytes.bytes().empty()) return static_cast<REALstringStruct*>(nullptr);
    return dump(bytes.bytes(), {hexlen, linelen, lineStart.bytes(), lineEnd.bytes(), space.bytes(), fill.bytes()});
  });
}
