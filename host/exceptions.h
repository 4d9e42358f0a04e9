/// Host exceptions, and the two frames that keep C++ exceptions inside the plugin.
#pragma once

#include <cstdint>
#include <utility>

/// Raises an exception in the host: an instance of the class with Message and ErrorNumber set. The host marks it
/// and throws it in the caller once the method has returned. Raises a "RuntimeException" where the host doesn't know
/// the class, and nothing where it knows neither.
/// @param message      NUL-terminated ASCII, or null for none
/// @param errorNumber  handed to the host as it is; the plugin's own exceptions all have 0
/// @param flag         has no effect
void RaiseException(const char* className, const char* message, std::uint32_t errorNumber, std::int32_t flag) noexcept;

/// Raises an "OutOfMemoryException" with a message other than the standard one.
void raiseOutOfMemory(const char* message) noexcept;

/// Raises the host exception that stands for the C++ exception being handled. Only for use in a handler.
void raiseCurrentException() noexcept;

/// Runs a method's work. An exception in it is raised in the host, and the result is the empty one.
template <typename Work>
[[nodiscard]] auto raisingOnFailure(Work&& work) noexcept -> decltype(work()) {
  try {
    return std::forward<Work>(work)();
  } catch (...) {
    raiseCurrentException();
    return {};
  }
}

/// Runs a method's work. An exception in it is dropped, and the result is the empty one.
template <typename Work>
[[nodiscard]] auto emptyOnFailure(Work&& work) noexcept -> decltype(work()) {
  try {
    return std::forward<Work>(work)();
  } catch (...) {
    return {};
  }
}
