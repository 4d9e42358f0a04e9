/// Each row of the list of catches, thrown through the raising frame in a host of a few lines.
#include "host/exceptions.h"

#include <array>
#include <doctest/doctest.h>
#include <new>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

#include "host/globals.h"
#include "host/records.h"

namespace {

struct Raised {
  std::string className;
  std::string message;
  HostInteger errorNumber = -1;
};

std::string builtMessage;
std::string unknownClass;
Raised pending;
std::vector<Raised> raised;
int references = 0;

const auto kMessageString = reinterpret_cast<REALstringStruct*>(&builtMessage);
const auto kException = reinterpret_cast<REALobjectStruct*>(&pending);

REALstringStruct* buildString(const void* bytes, HostInteger length) {
  builtMessage.assign(static_cast<const char*>(bytes), static_cast<std::size_t>(length));
  ++references;
  return kMessageString;
}
void setStringEncoding(REALstringStruct*, TextEncoding encoding) { CHECK(encoding == kEncodingASCII); }
void unlockString(REALstringStruct*) { --references; }
REALobjectStruct* newInstance(const char* className) {
  if (className == unknownClass) return nullptr;
  pending = {.className = className, .message = {}};
  ++references;
  return kException;
}
void setString(REALobjectStruct*, const char* property, REALstringStruct* value) {
  CHECK(std::string_view(property) == "Message");
  pending.message = value != nullptr ? builtMessage : std::string{};
}
void setInteger(REALobjectStruct*, const char* property, HostInteger value) {
  CHECK(std::string_view(property) == "ErrorNumber");
  pending.errorNumber = value;
}
void raiseException(REALobjectStruct*) { raised.push_back(pending); }
void unlockObject(REALobjectStruct*) { --references; }

HostEntry resolve(const char* name) {
  struct Service {
    std::string_view name;
    HostEntry entry;
  };
  const auto entry = [](auto* function) { return reinterpret_cast<HostEntry>(function); };
  const std::array services{
      Service{"REALBuildString", entry(buildString)},
      Service{"REALSetStringEncoding", entry(setStringEncoding)},
      Service{"REALUnlockString", entry(unlockString)},
      Service{"PluginNewInstance", entry(newInstance)},
      Service{"REALSetPropValueString", entry(setString)},
      Service{"REALSetPropValueInt", entry(setInteger)},  // the older of the two names
      Service{"RuntimeRaiseException", entry(raiseException)},
      Service{"REALUnlockObject", entry(unlockObject)},
  };
  for (const Service& service : services) {
    if (service.name == name) return service.entry;
  }
  return nullptr;
}

template <typename Raise>
Raised raisedBy(Raise provoke) {
  gResolver = resolve;
  raised.clear();
  provoke();
  CHECK(references == 0);
  REQUIRE(raised.size() == 1);
  CHECK(raised[0].errorNumber == 0);
  return raised[0];
}

template <typename Exception>
void checkRow(const char* className, const char* message, Exception exception) {
  const Raised row = raisedBy([&] { CHECK(raisingOnFailure([&]() -> int { throw exception; }) == 0); });
  CHECK(row.className == className);
  CHECK(row.message == message);
}

struct Custom : std::exception {
  const char* what() const noexcept override { return "custom"; }
};

}  // namespace

TEST_CASE("the raising frame translates each kind of exception") {
  checkRow("OutOfMemoryException", "Failed to allocate memory.", std::bad_alloc());
  checkRow("OutOfMemoryException", "Failed to allocate memory.", std::bad_array_new_length());
  checkRow("OutOfBoundsException", "range", std::range_error("range"));
  checkRow("OutOfBoundsException", "position", std::out_of_range("position"));
  checkRow("OutOfBoundsException", "over", std::overflow_error("over"));
  checkRow("OutOfBoundsException", "under", std::underflow_error("under"));
  checkRow("RuntimeException", "length", std::length_error("length"));
  checkRow("RuntimeException", "logic", std::logic_error("logic"));
  checkRow("RuntimeException", "runtime", std::runtime_error("runtime"));
  checkRow("IllegalCastException", std::bad_cast().what(), std::bad_cast());
  checkRow("RuntimeException", "custom", Custom());
  checkRow("RuntimeException", "Sorry, but there was an unnamed C++ Exception.", 7);
}

TEST_CASE("the frames pass results through, and the silent one raises nothing") {
  gResolver = resolve;
  raised.clear();
  CHECK(raisingOnFailure([] { return 7; }) == 7);
  CHECK(emptyOnFailure([] { return 7; }) == 7);
  CHECK(emptyOnFailure([]() -> int { throw std::bad_alloc(); }) == 0);
  CHECK(raised.empty());
}

TEST_CASE("a raise without a message, of an unknown class, and in a host without any class") {
  CHECK(raisedBy([] { RaiseException("OutOfMemoryException", nullptr, 0, 0); }).message.empty());

  unknownClass = "OutOfMemoryException";
  const Raised fallback = raisedBy([] { RaiseException("OutOfMemoryException", "text", 0, 0); });
  CHECK(fallback.className == "RuntimeException");
  CHECK(fallback.message == "text");

  unknownClass = "RuntimeException";
  raised.clear();
  RaiseException("RuntimeException", "text", 0, 0);
  CHECK(raised.empty());
  CHECK(references == 0);
  unknownClass.clear();
}
