/// Times in which large allocations fail.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#include <fstream>
#include <sys/resource.h>
#include <unistd.h>
#define CAN_LIMIT_MEMORY 1
#endif

/// While it lives, the process gets no more memory than `spare` bytes beyond what it has.
class ShortMemory {
 public:
  explicit ShortMemory([[maybe_unused]] std::size_t spare) {
#ifdef CAN_LIMIT_MEMORY
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    getrlimit(RLIMIT_AS, &before_);
    rlimit limit = before_;
    limit.rlim_cur = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) + spare;
    setrlimit(RLIMIT_AS, &limit);
#endif
  }
  ~ShortMemory() {
#ifdef CAN_LIMIT_MEMORY
    setrlimit(RLIMIT_AS, &before_);
#endif
  }
  ShortMemory(const ShortMemory&) = delete;

  /// False where the limit doesn't hold: under emulators and sanitizers, and on other systems.
  [[nodiscard]] static bool refuses(std::size_t size) {
    void* const memory = std::malloc(size);
    std::free(memory);
    return memory == nullptr;
  }

 private:
#ifdef CAN_LIMIT_MEMORY
  rlimit before_{};
#endif
};
