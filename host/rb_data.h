/// Host strings and memory blocks as raw bytes.
#pragma once

#include "host/references.h"
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

/// Asks the host where the bytes lie, through "StringGetCString" and LenB. The length is -1 where there is no LenB.
[[nodiscard]] StringContents contentsFromServices(REALstringStruct* string) noexcept;

/// Reads where the bytes lie from the string structure of hosts below 2016.0.
[[nodiscard]] StringContents contentsFromStructure(const REALstringStruct* string) noexcept;

/// Where the bytes lie, in the way the host's version asks for.
[[nodiscard]] StringContents contentsOf(REALstringStruct* string) noexcept;

/// Opens a host string or memory block as raw bytes: no copy, no conversion.
/// Holds one reference until destruction; `bytes()` is valid exactly that long.
class rbData {
 public:
  /// A null handle opens as no bytes and asks the host nothing.
  explicit rbData(REALstringStruct* source) noexcept;
  explicit rbData(REALmemoryBlockStruct* source) noexcept;
  rbData(const rbData&) = delete;
  rbData& operator=(const rbData&) = delete;

  /// Empty for a null handle, or where the host can't hand the bytes out.
  [[nodiscard]] ByteView bytes() const noexcept { return contents_.bytes(); }

 private:
  StringReference string_;
  ObjectReference object_;
  StringContents contents_;
};
