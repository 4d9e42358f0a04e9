/// Each row of the list of catches, thrown through the raising frame of a bridge that is linked to the host directly.
#include "host/exceptions.h"

#include <doctest/doctest.h>
#include <new>
#include <stdexcept>
#include <typeinfo>

#include "host/globals.h"
#include "standin/account.h"

namespace {

using standin::Raised;
using Raises = std::optional<Raised>;
using Classes = std::vector<std::string>;

const Classes kAll = standin::Options().classes;

/// What is raised in a host with these classes, which knows the older of the two names of a service.
template <typename Provoke>
Raises raisedBy(Provoke provoke, const Classes& classes = kAll) {
  standin::Host host({.without = {"REALSetPropValueInteger"}, .classes = classes});
  gResolver = standin::Host::resolve;
  Raises raised;
  {
    standin::Account account(host);
    provoke();
    if (account.raised() != nullptr) raised = account.raised()->raised;
    account.raise(nullptr);
    account.close();
    CHECK(account.violations == std::vector<std::string>{});
  }
  CHECK(host.alive() == 0);
  return raised;
}

template <typename Exception>
void checkRow(const char* className, const char* message, Exception exception) {
  const Raises raised = raisedBy([&] { CHECK(raisingOnFailure([&]() -> int { throw exception; }) == 0); });
  CHECK((raised == Raised{className, message, 0}));
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
  CHECK_FALSE(raisedBy([] {
    CHECK(raisingOnFailure([] { return 7; }) == 7);
    CHECK(emptyOnFailure([] { return 7; }) == 7);
    CHECK(emptyOnFailure([]() -> int { throw std::bad_alloc(); }) == 0);
  }));
}

TEST_CASE("a raise without a message, of an unknown class, and in a host without any class") {
  const auto raising = [](const char* message) {
    return [message] { RaiseException("OutOfMemoryException", message, 0, 0); };
  };
  CHECK((raisedBy(raising(nullptr)) == Raised{"OutOfMemoryException", "", 0}));
  CHECK((raisedBy(raising("text"), {"RuntimeException"}) == Raised{"RuntimeException", "text", 0}));
  CHECK_FALSE(raisedBy(raising("text"), {}));
}
