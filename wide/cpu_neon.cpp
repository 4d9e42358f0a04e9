/// Whether a 32-bit ARM CPU has NEON.
#include "wide/cpu.h"

#ifdef WIDE_NEON_IS_OPTIONAL

#include <sys/auxv.h>

unsigned cpu::askOffer() noexcept {
  const bool isThere = (getauxval(AT_HWCAP) & HWCAP_ARM_NEON) != 0;
  const unsigned offer = kAsked | (isThere ? unsigned{kNeon} : 0);
  knownOffer.store(offer, std::memory_order_relaxed);
  return offer;
}

#endif  // WIDE_NEON_IS_OPTIONAL
