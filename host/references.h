/// Owners of one reference to something of the host's. Each gives its reference back when it is destroyed.
#pragma once

#include <utility>

#include "host/services.h"

/// A memory block as the object it is to the reference services.
[[nodiscard]] inline REALobjectStruct* asObject(REALmemoryBlockStruct* block) noexcept {
  return reinterpret_cast<REALobjectStruct*>(block);
}

/// How references of each kind of handle are taken and dropped.
struct StringReferences {
  static void take(REALstringStruct* string) noexcept { REALLockString(string); }
  static void drop(REALstringStruct* string) noexcept { REALUnlockString(string); }
};

struct ObjectReferences {
  static void take(REALobjectStruct* object) noexcept { REALLockObject(object); }
  static void drop(REALobjectStruct* object) noexcept { REALUnlockObject(object); }
};

template <typename Handle, typename References>
class Reference {
 public:
  Reference() noexcept = default;

  /// Takes over a reference that the caller owns; null owns nothing.
  [[nodiscard]] static Reference steal(Handle* handle) noexcept { return Reference(handle); }

  /// Takes a new reference.
  [[nodiscard]] static Reference borrow(Handle* handle) noexcept {
    if (handle != nullptr) References::take(handle);
    return Reference(handle);
  }

  Reference(Reference&& other) noexcept : handle_(other.release()) {}
  Reference& operator=(Reference&& other) noexcept {
    Reference old(std::exchange(handle_, other.release()));
    return *this;
  }
  ~Reference() {
    if (handle_ != nullptr) References::drop(handle_);
  }

  explicit operator bool() const noexcept { return handle_ != nullptr; }
  [[nodiscard]] Handle* get() const noexcept { return handle_; }

  /// Passes the reference to the caller.
  [[nodiscard]] Handle* release() noexcept { return std::exchange(handle_, nullptr); }

 private:
  explicit Reference(Handle* handle) noexcept : handle_(handle) {}

  Handle* handle_ = nullptr;
};

using StringReference = Reference<REALstringStruct, StringReferences>;
using ObjectReference = Reference<REALobjectStruct, ObjectReferences>;

/// The argument itself as a method's result: the same handle with one more reference, which passes to the host.
[[nodiscard]] inline REALstringStruct* sameString(REALstringStruct* argument) noexcept {
  return StringReference::borrow(argument).release();
}
