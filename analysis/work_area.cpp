#include "analysis/work_area.h"

#include <cinttypes>
#include <cstdio>

#include "host/exceptions.h"

void raiseNoWorkArea(std::int64_t byteCount) noexcept {
  char message[100];
  std::snprintf(message, sizeof message, "Failed to allocate %" PRId64 " bytes of memory.", byteCount);
  raiseOutOfMemory(message);
}
