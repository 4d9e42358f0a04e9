/// The method for SQL booleans.
#include <cstring>
#include <new>

#include "analysis/methods.h"
#include "analysis/sql_booleans.h"
#include "host/build_string.h"
#include "host/exceptions.h"
#include "host/rb_text.h"
#include "memory/work_buffer.h"

namespace {

/// The bytes before the first zero byte: a result ends there, and no word goes across it.
ByteView beforeZero(ByteView bytes) noexcept {
  const void* const zero = bytes.empty() ? nullptr : std::memchr(bytes.data(), 0, bytes.size());
  return zero != nullptr ? ByteView(bytes.data(), static_cast<const std::uint8_t*>(zero)) : bytes;
}

}  // namespace

REALstringStruct* SQLReplaceBooleanZQV(REALstringStruct* SQL) noexcept {
  return raisingOnFailure([&] {
    rbText text(SQL);
    const ByteView sql = beforeZero(text.utf8());
    if (sql.empty()) return static_cast<REALstringStruct*>(nullptr);
    const WorkBuffer result(std::ssize(sql));
    if (!result) throw std::bad_alloc();
    const std::size_t size = sql_booleans::replace(sql, result.bytes());
    return REALBuildUnicodeString(result.data(), static_cast<std::int64_t>(size), kEncodingUTF8);
  });
}
