#include "host/exceptions.h"

#include <cstring>
#include <exception>
#include <new>
#include <stdexcept>
#include <typeinfo>

#include "host/build_string.h"
#include "host/references.h"

namespace {

constexpr char kOutOfMemory[] = "OutOfMemoryException";
constexpr char kOutOfBounds[] = "OutOfBoundsException";
constexpr char kIllegalCast[] = "IllegalCastException";
constexpr char kRuntime[] = "RuntimeException";

StringReference messageString(const char* message) noexcept {
  if (message == nullptr) return {};
  const auto length = static_cast<std::int64_t>(std::strlen(message));
  return StringReference::steal(REALBuildUnicodeString(message, length, kEncodingASCII));
}

ObjectReference newException(const char* className) noexcept {
  REALobjectStruct* exception = REALnewInstance(className);
  if (exception == nullptr) exception = REALnewInstance(kRuntime);
  return ObjectReference::steal(exception);
}

void raise(const char* className, const char* message) noexcept { RaiseException(className, message, 0, 0); }

}  // namespace

void RaiseException(const char* className, const char* message, std::uint32_t errorNumber,
                    std::int32_t /*flag*/) noexcept {
  const StringReference text = messageString(message);
  const ObjectReference exception = newException(className);  // dropped before the message
  if (!exception) return;
  REALSetPropValueString(exception.get(), "Message", text.get());
  REALSetPropValueInteger(exception.get(), "ErrorNumber", static_cast<std::int32_t>(errorNumber));
  REALRaiseException(exception.get());
}

void raiseOutOfMemory(const char* message) noexcept { raise(kOutOfMemory, message); }

void raiseCurrentException() noexcept {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    raise(kOutOfMemory, "Failed to allocate memory.");
  } catch (const std::range_error& error) {
    raise(kOutOfBounds, error.what());
  } catch (const std::out_of_range& error) {
    raise(kOutOfBounds, error.what());
  } catch (const std::overflow_error& error) {
    raise(kOutOfBounds, error.what());
  } catch (const std::underflow_error& error) {
    raise(kOutOfBounds, error.what());
  } catch (const std::logic_error& error) {
    raise(kRuntime, error.what());
  } catch (const std::runtime_error& error) {
    raise(kRuntime, error.what());
  } catch (const std::bad_cast& error) {
    raise(kIllegalCast, error.what());
  } catch (const std::exception& error) {
    raise(kRuntime, error.what());
  } catch (...) {
    raise(kRuntime, "Sorry, but there was an unnamed C++ Exception.");
  }
}
