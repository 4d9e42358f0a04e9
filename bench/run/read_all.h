/// Reading memory and nothing else: the bound for every test that has to look at each byte.
#pragma once

#include "memory/byte_view.h"

/// Reads all bytes once, in the widest steps the CPU has here, and combines them into a number nobody needs.
[[nodiscard]] std::uint64_t readAll(ByteView bytes) noexcept;
