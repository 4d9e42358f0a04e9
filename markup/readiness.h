/// Whether bytes can stand in an HTML or XML document as they are.
#pragma once

#include "memory/byte_view.h"
#include "wide/cpu.h"

namespace readiness {

/// True when every byte is ASCII, and neither NUL nor a markup character; also for no bytes.
[[nodiscard]] bool isReady(ByteView bytes) noexcept;

namespace scalar {
[[nodiscard]] bool isReady(ByteView bytes) noexcept;
}

#ifdef WIDE_AVX2
namespace avx2 {
[[nodiscard]] bool isReady(ByteView bytes) noexcept;
}
#endif
#ifdef WIDE_NEON
namespace neon {
[[nodiscard]] bool isReady(ByteView bytes) noexcept;
}
#endif

}  // namespace readiness
