/// Host strings and memory blocks as raw bytes.
#pragma once

#include <algorithm>

#include "host/references.h"
#include "host/versions.h"
#include "memory/byte_view.h"

/// Where the bytes of a host string lie, as the host tells. Null or a length below 1 means no bytes.
struct StringContents {
  const std::uint8_t* data = nullptr;
  std::int32_t length = 0;

  /// False when there is a length but no bytes to it, or the length is unknown (below 0).
  [[nodiscard]] bool reachable() const noexcept { return length == 0 || (length > 0 && data != nullptr); }

  [[nodiscard]] ByteView bytes() const noexcept {
    return data != nullptr && length > 0 ? ByteView{data, static_cast<std::size_t>(length)} : ByteView{};
  }
};

// Every method opens its arguments, most of them short ones: what follows is inline for their sake.

/// Asks the host where the bytes lie, through "StringGetCString" and LenB. The length is -1 where there is no LenB.
[[nodiscard]] inline StringContents contentsFromServices(REALstringStruct* string) noexcept {
  const auto getContents = REALGetStringContents.find();
  const auto getLength = LenB.find();
  StringContents contents;
  contents.length = getLength != nullptr ? getLength(string) : -1;
  if (getContents != nullptr) contents.data = static_cast<const std::uint8_t*>(getContents(string));
  return contents;
}

/// Reads where the bytes lie from the string structure of hosts below 2016.0.
[[nodiscard]] inline StringContents contentsFromStructure(const REALstringStruct* string) noexcept {
  return {string->storage != nullptr ? string->storage + 1 : nullptr, string->length};
}

/// Where the bytes lie, in the way the host's version asks for.
[[nodiscard]] inline StringContents contentsOf(REALstringStruct* string) noexcept {
  return hostIsAtLeast(kVersionStringServices) ? contentsFromServices(string) : contentsFromStructure(string);
}

/// Opens a host string or memory block as raw bytes: no copy, no conversion.
/// Holds one reference until destruction; `bytes()` is valid exactly that long.
class rbData {
 public:
  /// A null handle opens as no bytes and asks the host nothing.
  explicit rbData(REALstringStruct* source) noexcept {
    if (source == nullptr) return;
    contents_ = contentsOf(source);
    string_ = StringReference::borrow(source);
  }

  explicit rbData(REALmemoryBlockStruct* source) noexcept {
    if (source == nullptr) return;
    object_ = ObjectReference::borrow(asObject(source));
    const std::int32_t size = REALMemoryBlockGetSize(source);
    const void* const data = REALMemoryBlockGetPtr(source);
    if (data != nullptr) contents_ = {static_cast<const std::uint8_t*>(data), std::max(size, 0)};
  }

  rbData(const rbData&) = delete;
  rbData& operator=(const rbData&) = delete;

  /// Empty for a null handle, or where the host can't hand the bytes out.
  [[nodiscard]] ByteView bytes() const noexcept { return contents_.bytes(); }

 private:
  StringReference string_;
  ObjectReference object_;
  StringContents contents_;
};
