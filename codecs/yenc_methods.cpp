#include <cinttypes>
#include <cstdio>
#include <cstring>

#include "codecs/methods.h"
#include "codecs/yenc.h"
#include "host/build_string.h"
#include "host/exceptions.h"
#include "host/rb_data.h"
#include "memory/limits.h"
#include "memory/work_buffer.h"

namespace {

/// The longest memory block that is made.
constexpr std::int64_t kMaxBlockSize = kMaxSize - 1;

/// A new memory block with these bytes; null when it can't be had.
REALmemoryBlockStruct* newBlock(const std::uint8_t* bytes, std::int64_t size) noexcept {
  if (size > kMaxBlockSize) return nullptr;
  REALmemoryBlockStruct* const block = REALNewMemoryBlockOriginal(static_cast<HostInteger>(size));
  ObjectReference reference = ObjectReference::steal(asObject(block));
  if (!reference) return nullptr;
  void* const contents = REALMemoryBlockGetPtr(block);
  if (contents == nullptr) return nullptr;
  std::memcpy(contents, bytes, static_cast<std::size_t>(size));
  return reinterpret_cast<REALmemoryBlockStruct*>(reference.release());
}

void raiseNoBlock(std::int64_t size) noexcept {
  char message[200];
  std::snprintf(message, sizeof message, "Failed to allocate a memoryblock with %" PRId64 " bytes in size.", size);
  raiseOutOfMemory(message);
}

}  // namespace

REALstringStruct* yDecodeZQVs(REALstringStruct* data) noexcept {
  const rbData input(data);
  const WorkBuffer bytes(std::ssize(input.bytes()));
  if (!bytes) return nullptr;
  const std::size_t length = yenc::decode(input.bytes(), bytes.bytes());
  return REALBuildUnicodeString(bytes.data(), static_cast<std::int64_t>(length), kEncodingNone);
}

REALmemoryBlockStruct* yDecodeZQVm(REALmemoryBlockStruct* data) noexcept {
  const rbData input(data);
  const WorkBuffer bytes(std::ssize(input.bytes()));
  if (!bytes) return nullptr;
  const auto length = static_cast<std::int64_t>(yenc::decode(input.bytes(), bytes.bytes()));
  REALmemoryBlockStruct* const block = newBlock(bytes.data(), length);
  if (block == nullptr) raiseNoBlock(length);
  return block;
}
