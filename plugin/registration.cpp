#include "plugin/registration.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "host/services.h"
#include "host/versions.h"
#include "memory/heap_units.h"
#include "plugin/method_table.h"

constinit std::int32_t CurrentREALControlVersion = 13;
constinit const char* gpartname = nullptr;

namespace {

template <typename Record>
HeapUnits<Record> allocateZeroed(std::size_t count) noexcept {
  return HeapUnits<Record>(static_cast<Record*>(std::calloc(count, sizeof(Record))));
}

HeapUnits<char> moduleName() noexcept {
  char buffer[100] = {};
  std::snprintf(buffer, sizeof buffer, "%s%s", gpartname, "GlobalsZQV");
  const std::size_t size = std::strlen(buffer) + 1;
  HeapUnits<char> name = allocateZeroed<char>(size);
  if (name != nullptr) std::memcpy(name.get(), buffer, size);
  return name;
}

HeapUnits<MethodEntry> moduleMethods() noexcept {
  HeapUnits<MethodEntry> methods = allocateZeroed<MethodEntry>(globalMethods.size());
  if (methods == nullptr) return nullptr;
  for (std::size_t i = 0; i < globalMethods.size(); ++i) {
    methods[i] = globalMethods[i];
    methods[i].flags |= kModuleMethodFlag;
  }
  return methods;
}

void registerModule() noexcept {
  HeapUnits<ModuleRecord> module = allocateZeroed<ModuleRecord>(1);
  HeapUnits<MethodEntry> methods = moduleMethods();
  HeapUnits<char> name = moduleName();
  if (module == nullptr || methods == nullptr || name == nullptr) return;
  module[0].version = CurrentREALControlVersion;
  module[0].name = name.get();
  module[0].methods = methods.get();
  module[0].methodCount = static_cast<std::uint32_t>(globalMethods.size());

  const auto registerModule = REALRegisterModule.find();
  if (registerModule == nullptr) return;
  registerModule(module.get());
  // The host keeps the record and all that it points to.
  (void)module.release();
  (void)methods.release();
  (void)name.release();
}

void registerOneByOne() noexcept {
  for (const MethodEntry& entry : globalMethods) REALRegisterMethod(&entry);
}

}  // namespace

void registerMethods() noexcept {
  if (hostIsAtLeast(kVersionModules) && !hostIsAtLeast(kVersionNoModules)) {
    registerModule();
  } else {
    registerOneByOne();
  }
}
