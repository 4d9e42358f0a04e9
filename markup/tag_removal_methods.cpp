#include <new>

#include "host/build_string.h"
#include "host/exceptions.h"
#include "host/rb_text.h"
#include "markup/methods.h"
#include "markup/tag_removal.h"
#include "memory/limits.h"
#include "memory/work_buffer.h"

namespace {

REALstringStruct* removed(ByteView text) {
  if (text.empty()) return nullptr;
  const WorkBuffer kept(static_cast<std::int64_t>(text.size()));
  if (!kept) throw std::bad_alloc();
  const std::size_t size = tags::remove(text, kept.bytes());
  return REALBuildUnicodeString(kept.data(), static_cast<std::int64_t>(size), kEncodingUTF8);
}

REALstringStruct* replaced(ByteView text, ByteView replacement) {
  const std::int64_t size = tags::replacedSize(text, replacement);
  if (size == 0 || size > kMaxSize) return nullptr;
  const WorkBuffer result(size);
  if (!result) throw std::bad_alloc();
  tags::replace(text, replacement, result.bytes());
  return REALBuildUnicodeString(result.data(), result.size(), kEncodingUTF8);
}

}  // namespace

REALstringStruct* RemoveHTMLTags(REALstringStruct* AsciiTextWithTags) noexcept {
  return RemoveHTMLTagsWith(AsciiTextWithTags, nullptr);
}

REALstringStruct* RemoveHTMLTagsWith(REALstringStruct* AsciiTextWithTags, REALstringStruct* Replacement) noexcept {
  if (AsciiTextWithTags == nullptr) return nullptr;
  return raisingOnFailure([&] {
    rbText replacement(Replacement);
    const ByteView with = tags::untilZeroByte(replacement.utf8());
    rbText text(AsciiTextWithTags);
    return with.empty() ? removed(text.utf8()) : replaced(text.utf8(), with);
  });
}
