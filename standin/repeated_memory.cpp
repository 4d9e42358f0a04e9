#include "standin/repeated_memory.h"

#include <cstdio>
#include <new>
#include <string>

#if defined(__linux__) && UINTPTR_MAX > UINT32_MAX

#include <memory>
#include <sys/mman.h>
#include <unistd.h>

namespace standin {
namespace {

struct Close {
  void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

/// A file of whole pages and whole repetitions, long enough that a few hundred mappings of it make a huge string.
File repetitions(std::string_view bytes, std::size_t& size) {
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  constexpr std::size_t kEnough = std::size_t{4} << 20;
  std::string block;
  while (block.size() < bytes.size() * page) block += bytes;
  File file(std::tmpfile());
  if (file == nullptr) throw std::bad_alloc();
  for (size = 0; size < kEnough; size += block.size()) {
    if (std::fwrite(block.data(), 1, block.size(), file.get()) != block.size()) throw std::bad_alloc();
  }
  if (std::fflush(file.get()) != 0) throw std::bad_alloc();
  return file;
}

}  // namespace

bool RepeatedMemory::isOffered() noexcept { return true; }

RepeatedMemory::RepeatedMemory(std::string_view bytes, std::size_t size, std::size_t tail) {
  std::size_t step = 0;
  const File file = repetitions(bytes, step);
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const std::size_t steps = (size + tail) / step + 1;
  regionSize_ = page + steps * step;
  region_ = mmap(nullptr, regionSize_, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (region_ == MAP_FAILED) throw std::bad_alloc();
  data_ = static_cast<std::uint8_t*>(region_) + page;
  for (std::size_t i = 0; i < steps; ++i) {
    void* const mapped = mmap(data_ + i * step, step, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_FIXED | MAP_NORESERVE,
                              fileno(file.get()), 0);
    if (mapped != MAP_FAILED) continue;
    munmap(region_, regionSize_);
    throw std::bad_alloc();
  }
}

RepeatedMemory::~RepeatedMemory() { munmap(region_, regionSize_); }

}  // namespace standin

#else

namespace standin {

bool RepeatedMemory::isOffered() noexcept { return false; }

RepeatedMemory::RepeatedMemory(std::string_view /*bytes*/, std::size_t /*size*/, std::size_t /*tail*/) {
  throw std::bad_alloc();
}

RepeatedMemory::~RepeatedMemory() = default;

}  // namespace standin

#endif
