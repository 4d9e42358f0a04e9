#include <cinttypes>
#include <cstdio>

#include "analysis/jaro_winkler.h"
#include "analysis/levenshtein.h"
#include "analysis/methods.h"
#include "host/exceptions.h"
#include "host/rb_text.h"
#include "memory/limits.h"

namespace {

/// Raises the exception that names the size of the work area that could not be had.
void raiseNoWorkArea(std::int64_t byteCount) noexcept {
  char message[100];
  std::snprintf(message, sizeof message, "Failed to allocate %" PRId64 " bytes of memory.", byteCount);
  raiseOutOfMemory(message);
}

}  // namespace

double levenshteinDistanceZQV(REALstringStruct* a, REALstringStruct* b) noexcept {
  rbText first(a);
  rbText second(b);
  const Utf32View A = first.utf32();
  const Utf32View B = second.utf32();
  if (A.empty() || B.empty()) return 1.0;
  const std::int64_t matrixSize = levenshtein::matrixSize(A, B);
  const std::int64_t distance = matrixSize <= kMaxSize ? levenshtein::distance(A, B) : levenshtein::kNoMemory;
  if (distance == levenshtein::kNoMemory) {
    raiseNoWorkArea(matrixSize);
    return 1.0;
  }
  return levenshtein::relativeDistance(distance, A, B);
}

double jaroWinklerDistanceZQV(REALstringStruct* a, REALstringStruct* b) noexcept {
  using jaro_winkler::Shortage;
  rbText first(a);
  rbText second(b);
  const Utf32View A = first.utf32();
  const Utf32View B = second.utf32();
  const jaro_winkler::Result result = jaro_winkler::distance(A, B);
  if (result.shortage != Shortage::kNone) {
    raiseNoWorkArea(std::ssize(result.shortage == Shortage::kFirstText ? A : B));
  }
  return result.distance;
}
