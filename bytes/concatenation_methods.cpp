#include "bytes/concatenation.h"
#include "bytes/methods.h"
#include "host/build_string.h"
#include "host/rb_data.h"
#include "memory/work_buffer.h"

namespace {

/// Room that the limit on the result counts in.
constexpr std::int64_t kSpare = 10;

template <typename... Strings>
REALstringStruct* concatenated(Strings*... strings) noexcept {
  const rbData inputs[] = {rbData(strings)...};
  ByteView parts[sizeof...(strings)];
  for (std::size_t i = 0; i < std::size(inputs); ++i) parts[i] = inputs[i].bytes();

  const std::int64_t size = concatenation::joinedSize(parts);
  const WorkBuffer joined(size, size + kSpare);
  if (!joined) return nullptr;
  concatenation::join(parts, joined.bytes());
  return REALBuildUnicodeString(joined.data(), joined.size(), kEncodingNone);
}

}  // namespace

REALstringStruct* ConcatBinaryStringsZQV2(REALstringStruct* a, REALstringStruct* b) noexcept {
  return concatenated(a, b);
}

REALstringStruct* ConcatBinaryStringsZQV3(REALstringStruct* a, REALstringStruct* b, REALstringStruct* c) noexcept {
  return concatenated(a, b, c);
}

REALstringStruct* ConcatBinaryStringsZQV4(REALstringStruct* a, REALstringStruct* b, REALstringStruct* c,
                                          REALstringStruct* d) noexcept {
  return concatenated(a, b, c, d);
}

REALstringStruct* ConcatBinaryStringsZQV5(REALstringStruct* a, REALstringStruct* b, REALstringStruct* c,
                                          REALstringStruct* d, REALstringStruct* e) noexcept {
  return concatenated(a, b, c, d, e);
}

REALstringStruct* ConcatBinaryStringsZQV6(REALstringStruct* a, REALstringStruct* b, REALstringStruct* c,
                                          REALstringStruct* d, REALstringStruct* e, REALstringStruct* f) noexcept {
  return concatenated(a, b, c, d, e, f);
}
