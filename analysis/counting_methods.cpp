#include "analysis/counting.h"
#include "analysis/methods.h"
#include "host/rb_data.h"

HostInteger CountOccurancesZQV(REALstringStruct* s, REALstringStruct* find) noexcept {
  if (find == nullptr) return 0;
  const rbData text(s);
  const rbData pattern(find);
  return static_cast<HostInteger>(counting::count(text.bytes(), pattern.bytes()));
}
