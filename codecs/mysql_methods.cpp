/// "DecodingFromMySQLZQV".
#include "codecs/methods.h"
#include "codecs/mysql.h"
#include "host/build_string.h"
#include "host/rb_data.h"
#include "memory/work_buffer.h"

REALstringStruct* DecodingFromMySQL(REALstringStruct* s) noexcept {
  const rbData input(s);
  const WorkBuffer bytes(mysql::decodedBound(std::ssize(input.bytes())));
  if (!bytes) return nullptr;
  const std::size_t size = mysql::decode(input.bytes(), bytes.bytes());
  return REALBuildUnicodeString(bytes.data(), static_cast<std::int64_t>(size), kEncodingNone);
}
