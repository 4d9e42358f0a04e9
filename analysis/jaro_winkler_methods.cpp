#include "analysis/jaro_winkler.h"
#include "analysis/methods.h"
#include "analysis/work_area.h"
#include "host/rb_text.h"

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
