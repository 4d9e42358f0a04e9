#include "bytes/methods.h"
#include "bytes/random_bytes.h"
#include "host/build_string.h"
#include "memory/work_buffer.h"

REALstringStruct* RandomBytesStringZQV(std::int32_t Length, HostBooleanArgument ASCII) noexcept {
  const WorkBuffer bytes(Length);
  if (!bytes) return nullptr;
  if (isTrue(ASCII)) {
    random_bytes::fillWithASCII(bytes.bytes());
    return REALBuildUnicodeString(bytes.data(), bytes.size(), kEncodingASCII);
  }
  random_bytes::fill(bytes.bytes());
  return REALBuildUnicodeString(bytes.data(), bytes.size(), kEncodingNone);
}
