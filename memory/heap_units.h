/// Code units on the heap, for results that outlive the function that makes them.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>

#include "memory/limits.h"

struct FreeMemory {
  void operator()(void* memory) const noexcept { std::free(memory); }
};

template <typename Unit>
using HeapUnits = std::unique_ptr<Unit[], FreeMemory>;

/// Provides `byteCount` uninitialised bytes as units. Null when that is more than 2^31 - 1, or memory is short.
template <typename Unit>
[[nodiscard]] HeapUnits<Unit> allocateUnits(std::int64_t byteCount) noexcept {
  if (byteCount > kMaxSize) return nullptr;
  return HeapUnits<Unit>(static_cast<Unit*>(std::malloc(static_cast<std::size_t>(byteCount))));
}
