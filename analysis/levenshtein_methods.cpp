#include "analysis/levenshtein.h"
#include "analysis/methods.h"
#include "analysis/work_area.h"
#include "host/rb_text.h"
#include "memory/limits.h"

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
