/// Stands before the C library's allocation functions: the plugin, like every library of the process, gets these.
/// An allocation is the plugin's own when the code that asks for it lies in the plugin's file.
#include "tests/failures/failing_memory.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <dlfcn.h>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
}

namespace {

std::atomic<bool> isCounting{false};
std::atomic<std::int64_t> count{0};
failing_memory::Plan current;

bool isPlugins(const void* caller) noexcept {
  Dl_info info;
  return dladdr(caller, &info) != 0 && std::strstr(info.dli_fname, "StringPlugin") != nullptr;
}

/// Counts an allocation; true when it has to fail.
bool fails(const void* caller) noexcept {
  if (!isCounting.load(std::memory_order_relaxed) || !isPlugins(caller)) return false;
  const std::int64_t number = count++;
  const bool isPlanned = current.first != failing_memory::kNever &&
                         (number == current.first || (current.andAllAfter && number > current.first));
  if (isPlanned) errno = ENOMEM;
  return isPlanned;
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) { return fails(__builtin_return_address(0)) ? nullptr : __libc_malloc(size); }

void* calloc(std::size_t number, std::size_t size) {
  return fails(__builtin_return_address(0)) ? nullptr : __libc_calloc(number, size);
}

void* realloc(void* memory, std::size_t size) {
  return fails(__builtin_return_address(0)) ? nullptr : __libc_realloc(memory, size);
}
}

failing_memory::Shortage::Shortage(Plan plan) noexcept {
  current = plan;
  count = 0;
  isCounting = true;
}

failing_memory::Shortage::~Shortage() { isCounting = false; }

std::int64_t failing_memory::Shortage::allocations() const noexcept { return count; }
