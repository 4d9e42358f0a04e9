/// Strings and memory blocks of the lean host: one allocation each, a plain reference count, converted forms kept.
#pragma once

#include <string_view>

#include "host/records.h"
#include "memory/byte_view.h"

namespace lean {

/// Makes a string with one reference, which the caller owns. Null for no bytes.
[[nodiscard]] REALstringStruct* makeString(ByteView bytes, TextEncoding encoding) noexcept;
[[nodiscard]] REALstringStruct* makeString(std::string_view text, TextEncoding encoding) noexcept;

void mark(REALstringStruct* string, TextEncoding encoding) noexcept;
void take(REALstringStruct* string) noexcept;
void drop(REALstringStruct* string) noexcept;

[[nodiscard]] ByteView bytesOf(REALstringStruct* string) noexcept;
[[nodiscard]] TextEncoding encodingOf(REALstringStruct* string) noexcept;

/// The text in another encoding, in bytes, a zero unit after it. Made at the first request and kept with the string,
/// so that what is timed is the plugin and not this host's converter. Valid as long as the string.
[[nodiscard]] ByteView formOf(REALstringStruct* string, TextEncoding encoding) noexcept;

/// A new string of the same text in UTF-8, converted anew at every call. Null for no text.
[[nodiscard]] REALstringStruct* converted(REALstringStruct* string, TextEncoding encoding) noexcept;

/// The bytes of all strings made so far.
[[nodiscard]] std::size_t bytesMade() noexcept;

/// Memory blocks; made without references of anyone else's, freed with the last one.
[[nodiscard]] REALmemoryBlockStruct* makeBlock(std::int64_t size) noexcept;
[[nodiscard]] std::uint8_t* dataOf(REALmemoryBlockStruct* block) noexcept;
[[nodiscard]] std::int32_t sizeOf(REALmemoryBlockStruct* block) noexcept;
void take(REALmemoryBlockStruct* block) noexcept;
void drop(REALmemoryBlockStruct* block) noexcept;

}  // namespace lean
