#include "host/rb_data.h"

#include <algorithm>

#include "host/versions.h"

StringContents contentsFromServices(REALstringStruct* string) noexcept {
  const auto getContents = REALGetStringContents.find();
  const auto getLength = LenB.find();
  StringContents contents;
  contents.length = getLength != nullptr ? getLength(string) : -1;
  if (getContents != nullptr) contents.data = static_cast<const std::uint8_t*>(getContents(string));
  return contents;
}

StringContents contentsFromStructure(const REALstringStruct* string) noexcept {
  return {string->storage != nullptr ? string->storage + 1 : nullptr, string->length};
}

StringContents contentsOf(REALstringStruct* string) noexcept {
  return hostIsAtLeast(kVersionStringServices) ? contentsFromServices(string) : contentsFromStructure(string);
}

rbData::rbData(REALstringStruct* source) noexcept {
  if (source == nullptr) return;
  contents_ = contentsOf(source);
  string_ = StringReference::borrow(source);
}

rbData::rbData(REALmemoryBlockStruct* source) noexcept {
  if (source == nullptr) return;
  object_ = ObjectReference::borrow(asObject(source));
  const std::int32_t size = REALMemoryBlockGetSize(source);
  const void* const data = REALMemoryBlockGetPtr(source);
  if (data != nullptr) contents_ = {static_cast<const std::uint8_t*>(data), std::max(size, 0)};
}
