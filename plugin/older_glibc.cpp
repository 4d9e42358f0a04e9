/// What the compiler's own libraries ask of the C library, for systems older than the one we build on.
///
/// The runtime that is linked into the plugin refers to a few functions by versions that came with glibc 2.32 to
/// 2.35; with these in their place it loads with glibc 2.17 too. They stay inside the plugin.

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <dlfcn.h>
#include <link.h>
#include <pthread.h>
#include <sched.h>

#if defined(DLFO_EH_SEGMENT_TYPE) && DLFO_EH_SEGMENT_TYPE == PT_GNU_EH_FRAME

namespace {

struct Search {
  std::uintptr_t address;
  dl_find_object* result;
};

bool covers(const dl_phdr_info& object, const ElfW(Phdr) & segment, std::uintptr_t address) noexcept {
  const std::uintptr_t begin = object.dlpi_addr + segment.p_vaddr;
  return segment.p_type == PT_LOAD && address >= begin && address - begin < segment.p_memsz;
}

#if DLFO_STRUCT_HAS_EH_DBASE
/// The base of data-relative addresses: the global offset table, which the loader has already moved in place.
void* dataBase(const ElfW(Dyn) * entry) noexcept {
  for (; entry->d_tag != DT_NULL; ++entry) {
    if (entry->d_tag == DT_PLTGOT) return reinterpret_cast<void*>(entry->d_un.d_ptr);
  }
  return nullptr;
}
#endif

/// Fills the result from the object that holds the address; 1 ends the walk there.
int examine(dl_phdr_info* object, std::size_t, void* data) noexcept {
  const Search& search = *static_cast<const Search*>(data);
  dl_find_object& result = *search.result;
  bool found = false;
  result = {};
  for (const ElfW(Phdr)* segment = object->dlpi_phdr; segment != object->dlpi_phdr + object->dlpi_phnum; ++segment) {
    void* const begin = reinterpret_cast<void*>(object->dlpi_addr + segment->p_vaddr);
    if (covers(*object, *segment, search.address)) {
      found = true;
      result.dlfo_map_start = begin;
      result.dlfo_map_end = static_cast<char*>(begin) + segment->p_memsz;
    }
    if (segment->p_type == PT_GNU_EH_FRAME) result.dlfo_eh_frame = begin;
#if DLFO_STRUCT_HAS_EH_DBASE
    if (segment->p_type == PT_DYNAMIC) result.dlfo_eh_dbase = dataBase(static_cast<const ElfW(Dyn)*>(begin));
#endif
  }
  return found ? 1 : 0;
}

}  // namespace

extern "C" {

/// Finds the loaded object that holds a code address, for the unwinder (glibc 2.35).
/// The map is the segment that holds the address, and the loader's own record is not given: the unwinder asks for
/// neither.
/// @return 0, or -1 where no object holds the address or the object can't be unwound
int _dl_find_object(void* address, dl_find_object* result) noexcept {
  Search search{reinterpret_cast<std::uintptr_t>(address), result};
  return dl_iterate_phdr(examine, &search) == 1 && result->dlfo_eh_frame != nullptr ? 0 : -1;
}

/// Runs a function once in the process, however many threads ask for it (in the C library itself since 2.34).
int pthread_once(pthread_once_t* control, void (*initialise)()) {
  constexpr pthread_once_t kRunning = 1;
  constexpr pthread_once_t kDone = 2;
  pthread_once_t before = PTHREAD_ONCE_INIT;
  if (__atomic_compare_exchange_n(control, &before, kRunning, false, __ATOMIC_ACQUIRE, __ATOMIC_ACQUIRE)) {
    initialise();
    __atomic_store_n(control, kDone, __ATOMIC_RELEASE);
  } else {
    while (__atomic_load_n(control, __ATOMIC_ACQUIRE) != kDone) sched_yield();
  }
  return 0;
}

/// The compiler's libraries take its presence for a sign that there may be threads. Nothing that is linked here
/// keeps data by key, and none is handed out.
int __pthread_key_create(pthread_key_t*, void (*)(void*)) noexcept { return EAGAIN; }
}

#endif

extern "C" {

/// Whether the process has one thread only, so that counting needs no atomic steps (glibc 2.32). There may always be
/// more.
char __libc_single_threaded = 0;
}
