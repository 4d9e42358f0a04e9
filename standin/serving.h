/// How a service is served: in the account of its thread, and never with an exception.
#pragma once

#include <type_traits>

#include "standin/account.h"

namespace standin {

/// Serves a call: `body` gets the visit and answers. A failing service answers null, 0 or false, and so does one
/// that runs out of memory.
template <typename Body>
auto serve(Service service, Body body) noexcept -> std::invoke_result_t<Body, const Visit&> {
  using Answer = std::invoke_result_t<Body, const Visit&>;
  try {
    const Visit visit(service);
    if (visit.fails()) return Answer();
    return body(visit);
  } catch (...) {
    return Answer();
  }
}

/// The string behind a handle, or null for the empty string and for one that is no more.
inline HostString* open(const Visit& visit, REALstringStruct* handle) {
  if (handle == nullptr) return nullptr;
  HostString* const string = HostString::of(handle);
  visit.note(string);
  if (string->isAlive()) return string;
  visit.report("the string was released before");
  return nullptr;
}

template <typename Object>
Object* open(const Visit& visit, Object* object) {
  visit.note(object);
  if (object == nullptr || object->isAlive()) return object;
  visit.report("the object was released before");
  return nullptr;
}

}  // namespace standin
