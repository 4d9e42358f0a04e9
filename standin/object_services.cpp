#include "standin/object_services.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "standin/serving.h"

namespace standin::services {
namespace {

ExceptionObject* openException(const Visit& visit, REALobjectStruct* object) {
  if (object == nullptr) {
    visit.report("no object");
    return nullptr;
  }
  auto* const exception = dynamic_cast<ExceptionObject*>(open(visit, object));
  if (exception == nullptr) visit.report("the object is no exception");
  return exception;
}

template <Service kName>
void setInteger(REALobjectStruct* object, const char* property, HostInteger value) {
  serve(kName, [&](const Visit& visit) {
    ExceptionObject* const exception = openException(visit, object);
    if (exception == nullptr) return;
    if (std::string_view(property) != "ErrorNumber") return visit.report("no such property");
    exception->raised.errorNumber = value;
  });
}

}  // namespace

// --- Objects and exceptions

REALobjectStruct* newInstance(const char* className) {
  return serve(Service::kNewInstance, [&](const Visit& visit) -> REALobjectStruct* {
    const auto& classes = visit.host().options().classes;
    if (std::find(classes.begin(), classes.end(), className) == classes.end()) return nullptr;
    return visit.host().makeException(className);
  });
}

void setPropValueString(REALobjectStruct* object, const char* property, REALstringStruct* value) {
  serve(Service::kSetPropValueString, [&](const Visit& visit) {
    ExceptionObject* const exception = openException(visit, object);
    if (exception == nullptr) return;
    if (std::string_view(property) != "Message") return visit.report("no such property");
    const HostString* string = open(visit, value);
    exception->raised.message = string == nullptr ? std::string() : std::string(string->bytes());
  });
}

void setPropValueInteger(REALobjectStruct* object, const char* property, HostInteger value) {
  setInteger<Service::kSetPropValueInteger>(object, property, value);
}

void setPropValueInt(REALobjectStruct* object, const char* property, HostInteger value) {
  setInteger<Service::kSetPropValueInt>(object, property, value);
}

void raiseException(REALobjectStruct* object) {
  serve(Service::kRaiseException, [&](const Visit& visit) {
    ExceptionObject* const exception = openException(visit, object);
    if (exception != nullptr && visit.account() != nullptr) visit.account()->raise(exception);
  });
}

void lockObject(REALobjectStruct* object) {
  serve(Service::kLockObject, [&](const Visit& visit) {
    if (open(visit, object) != nullptr) object->retain();
  });
}

void unlockObject(REALobjectStruct* object) {
  serve(Service::kUnlockObject, [&](const Visit& visit) { visit.host().release(open(visit, object)); });
}

// --- Memory blocks

std::int32_t memoryBlockGetSize(MemoryBlock* block) {
  return serve(Service::kMemoryBlockGetSize, [&](const Visit& visit) -> std::int32_t {
    if (const auto answer = visit.host().answer(Service::kMemoryBlockGetSize))
      return static_cast<std::int32_t>(*answer);
    return open(visit, block) == nullptr ? 0 : static_cast<std::int32_t>(block->contents.size());
  });
}

void* memoryBlockGetPtr(MemoryBlock* block) {
  return serve(Service::kMemoryBlockGetPtr, [&](const Visit& visit) -> void* {
    return open(visit, block) == nullptr ? nullptr : block->contents.data();
  });
}

MemoryBlock* newMemoryBlock(HostInteger size) {
  return serve(Service::kNewMemoryBlock, [&](const Visit& visit) -> MemoryBlock* {
    if (size < 0 || size > INT32_MAX) return nullptr;
    return visit.host().makeBlock(static_cast<std::size_t>(size));
  });
}

}  // namespace standin::services
