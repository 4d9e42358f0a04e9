#include "standin/guard_pages.h"

#include <array>
#include <mutex>
#include <new>

#if defined(_WIN32)
#include <windows.h>
#elif (defined(__unix__) || defined(__APPLE__)) && !defined(__EMSCRIPTEN__)
#include <sys/mman.h>
#include <unistd.h>
#else
#include <cstdlib>
#endif

namespace standin {
namespace {

#if defined(_WIN32)

constexpr bool kKeepsRegions = false;

std::size_t pageSize() {
  SYSTEM_INFO info;
  GetSystemInfo(&info);
  return info.dwPageSize;
}
void* reserve(std::size_t size) { return VirtualAlloc(nullptr, size, MEM_RESERVE, PAGE_NOACCESS); }
bool open(void* at, std::size_t size) { return VirtualAlloc(at, size, MEM_COMMIT, PAGE_READWRITE) != nullptr; }
void close(void* at, std::size_t size) {
  DWORD before;
  VirtualProtect(at, size, PAGE_READONLY, &before);
}
void hide(void* /*at*/, std::size_t /*size*/) {}
void release(void* region, std::size_t /*size*/) { VirtualFree(region, 0, MEM_RELEASE); }

#elif (defined(__unix__) || defined(__APPLE__)) && !defined(__EMSCRIPTEN__)

constexpr bool kKeepsRegions = true;

std::size_t pageSize() { return static_cast<std::size_t>(sysconf(_SC_PAGESIZE)); }
void* reserve(std::size_t size) {
  void* region = mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return region == MAP_FAILED ? nullptr : region;
}
bool open(void* at, std::size_t size) { return mprotect(at, size, PROT_READ | PROT_WRITE) == 0; }
void close(void* at, std::size_t size) { mprotect(at, size, PROT_READ); }
void hide(void* at, std::size_t size) { mprotect(at, size, PROT_NONE); }
void release(void* region, std::size_t size) { munmap(region, size); }

#else

constexpr bool kKeepsRegions = false;

std::size_t pageSize() { return 64; }
void* reserve(std::size_t size) { return std::malloc(size); }
bool open(void*, std::size_t) { return true; }
void close(void*, std::size_t) {}
void hide(void*, std::size_t) {}
void release(void* region, std::size_t) { std::free(region); }

#endif

/// Regions of one page between guards, hidden until they are used again: making one takes longer than most calls that
/// it serves.
class SpareRegions {
 public:
  void* take() noexcept {
    const std::lock_guard lock(guard_);
    return count_ == 0 ? nullptr : regions_[--count_];
  }

  bool keep(void* region) noexcept {
    const std::lock_guard lock(guard_);
    if (count_ == regions_.size()) return false;
    regions_[count_++] = region;
    return true;
  }

 private:
  std::mutex guard_;
  std::array<void*, 32> regions_{};
  std::size_t count_ = 0;
};

SpareRegions& spareRegions() {
  static SpareRegions regions;
  return regions;
}

}  // namespace

GuardedMemory::GuardedMemory(std::size_t size) : guardSize_(pageSize()) {
  if (size > SIZE_MAX / 2) throw std::bad_alloc();
  innerSize_ = ((size + 1) / guardSize_ + 1) * guardSize_;  // room for two bytes more in front
  region_ = innerSize_ == guardSize_ ? spareRegions().take() : nullptr;
  if (region_ == nullptr) region_ = reserve(innerSize_ + 2 * guardSize_);
  if (region_ == nullptr) throw std::bad_alloc();
  std::uint8_t* const inner = static_cast<std::uint8_t*>(region_) + guardSize_;
  if (!open(inner, innerSize_)) {
    release(region_, innerSize_ + 2 * guardSize_);
    throw std::bad_alloc();
  }
  data_ = inner + innerSize_ - size;
}

GuardedMemory::~GuardedMemory() {
  if (kKeepsRegions && innerSize_ == guardSize_) {
    hide(static_cast<std::uint8_t*>(region_) + guardSize_, innerSize_);
    if (spareRegions().keep(region_)) return;
  }
  release(region_, innerSize_ + 2 * guardSize_);
}

void GuardedMemory::seal() noexcept { close(static_cast<std::uint8_t*>(region_) + guardSize_, innerSize_); }

}  // namespace standin
