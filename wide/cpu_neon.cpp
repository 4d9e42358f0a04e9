/// Whether a 32-bit ARM CPU has NEON.
#include "wide/cpu.h"

#ifdef WIDE_NEON_IS_OPTIONAL

#include <atomic>
#include <sys/auxv.h>

namespace {

enum class Offer : unsigned char { kNotAsked, kNone, kNeon };

std::atomic<Offer> knownOffer{Offer::kNotAsked};

}  // namespace

bool cpu::hasNeon() noexcept {
  Offer known = knownOffer.load(std::memory_order_relaxed);
  if (known == Offer::kNotAsked) {
    known = (getauxval(AT_HWCAP) & HWCAP_ARM_NEON) != 0 ? Offer::kNeon : Offer::kNone;
    knownOffer.store(known, std::memory_order_relaxed);
  }
  return known == Offer::kNeon;
}

#endif  // WIDE_NEON_IS_OPTIONAL
