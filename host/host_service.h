/// A service of the host: looked up by name when it is first needed, then kept.
#pragma once

#include <atomic>
#include <type_traits>

#include "host/globals.h"

/// Asks the host for a service. Null where the host doesn't offer it.
[[nodiscard]] inline HostEntry lookUpService(const char* name) noexcept {
  return gResolver != nullptr ? gResolver(name) : nullptr;
}

template <typename Signature>
class HostService;

/// The slot of one service. Threads that fill it at once store the same value, so relaxed order is enough.
template <typename Result, typename... Args>
class HostService<Result(Args...)> {
  struct Nothing {};

 public:
  using Entry = Result (*)(Args...);
  using Absent = std::conditional_t<std::is_void_v<Result>, Nothing, Result>;
  using LookUp = HostEntry (*)(const char* name) noexcept;

  /// @param name    what the service is looked up under
  /// @param absent  the answer of a host without the service
  /// @param lookUp  how the name is resolved
  constexpr explicit HostService(const char* name, Absent absent = {}, LookUp lookUp = lookUpService) noexcept
      : slot_(nullptr), name_(name), olderName_(nullptr), lookUp_(lookUp), absent_(absent) {}

  /// @param olderName  what the service is looked up under where the host doesn't know the first name
  constexpr HostService(const char* name, const char* olderName) noexcept
      : slot_(nullptr), name_(name), olderName_(olderName), lookUp_(lookUpService), absent_() {}

  /// The entry point, or null while the host doesn't offer it; a lookup that fails is repeated at the next use.
  [[nodiscard]] Entry find() noexcept {
    const Entry kept = slot_.load(std::memory_order_relaxed);
    return kept != nullptr ? kept : resolve();
  }

  /// Calls the service, or gives the absent answer while the host doesn't offer it.
  Result operator()(Args... args) noexcept {
    const Entry entry = find();
    if (entry != nullptr) return entry(args...);
    if constexpr (!std::is_void_v<Result>) return absent_;
  }

 private:
  Entry resolve() noexcept {
    HostEntry found = lookUp_(name_);
    if (found == nullptr && olderName_ != nullptr) found = lookUp_(olderName_);
    const Entry entry = reinterpret_cast<Entry>(found);
    if (entry != nullptr) slot_.store(entry, std::memory_order_relaxed);
    return entry;
  }

  std::atomic<Entry> slot_;
  const char* name_;
  const char* olderName_;
  LookUp lookUp_;
  [[no_unique_address]] Absent absent_;
};
