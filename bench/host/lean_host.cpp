#include "bench/host/lean_host.h"

#include <algorithm>
#include <cstring>

#include "bench/host/lean_string.h"

namespace {

std::span<const MethodEntry> methods;
int raised = 0;

double version() { return 2023.1; }
void registerVersion(HostInteger) {}
HostBoolean inRuntime() { return 0; }
void registerModule(ModuleRecord* module) { methods = {module->methods, module->methodCount}; }

const void* contents(REALstringStruct* string) { return lean::bytesOf(string).data(); }
std::int32_t lengthInBytes(REALstringStruct* string) { return static_cast<std::int32_t>(lean::bytesOf(string).size()); }
TextEncoding encoding(REALstringStruct* string) {
  return string != nullptr ? lean::encodingOf(string) : kEncodingASCII;
}
void lockString(REALstringStruct* string) { lean::take(string); }
void unlockString(REALstringStruct* string) { lean::drop(string); }
HostEntry loadGlobalMethod(void*, const char*) { return reinterpret_cast<HostEntry>(&lengthInBytes); }

HostBoolean getStringData(REALstringStruct* string, TextEncoding wanted, StringDataRecord* record) {
  const ByteView form = lean::formOf(string, wanted);
  lean::take(string);
  record->data = form.data();
  record->length = static_cast<std::int32_t>(form.size());
  record->reserved[0] = string;
  return 1;
}

void disposeStringData(StringDataRecord* record) { lean::drop(static_cast<REALstringStruct*>(record->reserved[0])); }

REALstringStruct* buildMarked(const void* bytes, HostInteger length, TextEncoding mark) {
  return lean::makeString(ByteView{static_cast<const std::uint8_t*>(bytes), static_cast<std::size_t>(length)}, mark);
}

REALstringStruct* build(const void* bytes, HostInteger length) { return buildMarked(bytes, length, kEncodingNone); }
void setEncoding(REALstringStruct* string, TextEncoding mark) { lean::mark(string, mark); }
REALstringStruct* convert(REALstringStruct* string, TextEncoding wanted) { return lean::converted(string, wanted); }

/// The only objects besides memory blocks are exceptions, and those are counted, not looked at: one block stands for
/// all.
REALobjectStruct* newInstance(const char*) { return reinterpret_cast<REALobjectStruct*>(lean::makeBlock(1)); }
void setText(REALobjectStruct*, const char*, REALstringStruct*) {}
void setInteger(REALobjectStruct*, const char*, HostInteger) {}
void raise(REALobjectStruct*) { ++raised; }
void lockObject(REALobjectStruct* object) { lean::take(reinterpret_cast<REALmemoryBlockStruct*>(object)); }
void unlockObject(REALobjectStruct* object) { lean::drop(reinterpret_cast<REALmemoryBlockStruct*>(object)); }
std::int32_t blockSize(REALmemoryBlockStruct* block) { return lean::sizeOf(block); }
void* blockData(REALmemoryBlockStruct* block) { return lean::dataOf(block); }
REALmemoryBlockStruct* newBlock(HostInteger size) { return lean::makeBlock(size); }

struct Service {
  const char* name;
  HostEntry entry;
};

template <typename Signature>
Service offer(const char* name, Signature* entry) {
  return {name, reinterpret_cast<HostEntry>(entry)};
}

const Service kServices[] = {
    offer<service::GetRBVersion>("REALGetRBVersion", version),
    offer<service::RegisterPluginVersion>("RegisterPluginVersion", registerVersion),
    offer<service::InRuntime>("REALinRuntime", inRuntime),
    offer<service::RegisterModule>("PluginRegisterModule", registerModule),
    offer<service::LoadGlobalMethod>("REALLoadGlobalMethod", loadGlobalMethod),
    offer<service::GetStringEncoding>("REALGetStringEncoding", encoding),
    offer<service::LockString>("REALLockString", lockString),
    offer<service::UnlockString>("REALUnlockString", unlockString),
    offer<service::GetStringContents>("StringGetCString", contents),
    offer<service::GetStringData>("PluginGetStringData", getStringData),
    offer<service::DisposeStringData>("PluginDisposeStringData", disposeStringData),
    offer<service::ConvertString>("REALConvertString", convert),
    offer<service::BuildStringWithEncoding>("REALBuildStringWithEncoding", buildMarked),
    offer<service::BuildString>("REALBuildString", build),
    offer<service::SetStringEncoding>("REALSetStringEncoding", setEncoding),
    offer<service::NewInstance>("PluginNewInstance", newInstance),
    offer<service::SetPropValueString>("REALSetPropValueString", setText),
    offer<service::SetPropValueInteger>("REALSetPropValueInteger", setInteger),
    offer<service::RaiseException>("RuntimeRaiseException", raise),
    offer<service::LockObject>("REALLockObject", lockObject),
    offer<service::UnlockObject>("REALUnlockObject", unlockObject),
    offer<service::MemoryBlockGetSize>("memoryBlockGetSize", blockSize),
    offer<service::MemoryBlockGetPtr>("memoryBlockGetPtr", blockData),
    offer<service::NewMemoryBlock>("newMemoryBlock", newBlock),
};

std::size_t parameterCount(std::string_view declaration) noexcept {
  const std::string_view parameters = declaration.substr(0, declaration.find(')'));
  if (parameters.back() == '(') return 0;
  return static_cast<std::size_t>(std::ranges::count(parameters, ',')) + 1;
}

}  // namespace

HostEntry lean::resolve(const char* name) noexcept {
  for (const Service& service : kServices) {
    if (std::strcmp(service.name, name) == 0) return service.entry;
  }
  return nullptr;
}

std::span<const MethodEntry> lean::registeredMethods() noexcept { return methods; }

const MethodEntry* lean::findMethod(std::string_view name, std::size_t parameters) noexcept {
  for (const MethodEntry& method : methods) {
    const std::string_view declaration = method.declaration;
    if (declaration.substr(0, declaration.find('(')) == name && parameterCount(declaration) == parameters) {
      return &method;
    }
  }
  return nullptr;
}

int lean::exceptionsRaised() noexcept { return raised; }
