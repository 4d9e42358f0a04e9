/// A plugin that does what plugins must not do, so that the host's accounts have something to find; and a few honest
/// methods of every type.
#include <cstdint>
#include <cstring>
#include <initializer_list>

#include "host/records.h"

#ifdef _WIN32
#define EXPORTED __declspec(dllexport)
#else
#define EXPORTED __attribute__((visibility("default")))
#endif

namespace {

using S = REALstringStruct*;
using M = REALmemoryBlockStruct*;
using I = std::int32_t;
using D = double;

HostResolver gHost = nullptr;
I gCalls = 0;

template <typename Service>
Service* find(const char* name) {
  return reinterpret_cast<Service*>(gHost(name));
}

void lock(S s) { find<service::LockString>("REALLockString")(s); }
void unlock(S s) { find<service::UnlockString>("REALUnlockString")(s); }
S build(const char* text) {
  return find<service::BuildString>("REALBuildString")(text, static_cast<HostInteger>(std::strlen(text)));
}
StringDataRecord convert(S s, TextEncoding encoding) {
  StringDataRecord record{};
  find<service::GetStringData>("PluginGetStringData")(s, encoding, &record);
  return record;
}
void dispose(StringDataRecord& record) { find<service::DisposeStringData>("PluginDisposeStringData")(&record); }
std::int32_t lengthOf(S s) {
  const auto load = find<service::LoadGlobalMethod>("REALLoadGlobalMethod");
  return reinterpret_cast<service::LenB*>(load(nullptr, "LenB( s as string ) as integer"))(s);
}
const char* contents(S s) { return static_cast<const char*>(find<service::GetStringContents>("StringGetCString")(s)); }

S keepsAReference(S s) { return lock(s), nullptr; }
S forgetsAString(S) { return build("forgotten"), nullptr; }
S dropsTheArgument(S s) { return unlock(s), nullptr; }
S returnsWithoutAReference(S s) { return s; }
S returnsTheArgument(S s) { return lock(s), s; }
S releasesTwice(S) {
  S s = build("twice");
  return unlock(s), unlock(s), nullptr;
}
S forgetsARecord(S s) { return convert(s, kEncodingUTF16), nullptr; }
S disposesTwice(S s) {
  StringDataRecord record = convert(s, kEncodingUTF16);
  return dispose(record), dispose(record), nullptr;
}
S disposesAnEmptyRecord(S) {
  StringDataRecord record{};
  return dispose(record), nullptr;
}
S marksASharedString(S s) {
  return find<service::SetStringEncoding>("REALSetStringEncoding")(s, kEncodingASCII), nullptr;
}
S raisesTwice(S) {
  for (const char* className : {"RuntimeException", "OutOfMemoryException"}) {
    REALobjectStruct* exception = find<service::NewInstance>("PluginNewInstance")(className);
    S message = build(className);
    find<service::SetPropValueString>("REALSetPropValueString")(exception, "Message", message);
    find<service::SetPropValueInteger>("REALSetPropValueInteger")(exception, "ErrorNumber", 7);
    find<service::RaiseException>("RuntimeRaiseException")(exception);
    find<service::UnlockObject>("REALUnlockObject")(exception);
    unlock(message);
  }
  return nullptr;
}
M forgetsABlock(M) {
  static_cast<void>(find<service::NewMemoryBlock>("newMemoryBlock")(3));
  return nullptr;
}

HostInteger readsTheLength(S s) { return s->length; }
HostInteger readsBehindContents(S s) { return contents(s)[lengthOf(s)]; }
HostInteger writesContents(S s) {
  const_cast<char*>(contents(s))[0] = 'x';
  return 0;
}
HostInteger readsBehindForm(S s) {
  StringDataRecord record = convert(s, kEncodingUTF16);
  const HostInteger unit = static_cast<const char16_t*>(record.data)[record.length / 2];
  dispose(record);
  return unit;
}
HostInteger isAtOddAddress(S s) { return static_cast<HostInteger>(reinterpret_cast<std::uintptr_t>(contents(s)) & 1U); }
HostInteger counts(S) { return ++gCalls; }
HostInteger exceeds32Bits(S) { return static_cast<HostInteger>(std::uintptr_t{INT32_MAX} + 1); }
HostBoolean isTwo(S) { return 2; }

S form(S s) {
  StringDataRecord record = convert(s, kEncodingUTF16);
  S copy = find<service::BuildString>("REALBuildString")(record.data, record.length);
  dispose(record);
  return copy;
}
S structure(S s) { return find<service::BuildString>("REALBuildString")(s->storage + 1, s->length); }
S showsArguments(I number, HostBooleanArgument flag) {
  // A host may leave anything in the bits it doesn't use.
  const bool isRubbishThere = flag > 0xFF;
  const char* text = !isRubbishThere ? "no rubbish" : isTrue(flag) ? "true" : "false";
  return number == -3 ? build(text) : build("another number");
}

M returnsTheBlock(M m) {
  find<service::LockObject>("REALLockObject")(reinterpret_cast<REALobjectStruct*>(m));
  return m;
}
S kindOf(S s) { return s == nullptr ? build("null") : build(lengthOf(s) == 0 ? "empty" : "bytes"); }
double half(S, S) { return 0.5; }
HostBoolean isNull(S s) { return s == nullptr; }
S isNegative(D d) { return build(d < 0 ? "yes" : "no"); }

#define METHOD(function, declaration) \
  { function, nullptr, declaration, 4, 0, nullptr }

const MethodEntry kMethods[] = {
    METHOD(keepsAReference, "keepsAReference(s as string) as string"),
    METHOD(forgetsAString, "forgetsAString(s as string) as string"),
    METHOD(dropsTheArgument, "dropsTheArgument(s as string) as string"),
    METHOD(returnsWithoutAReference, "returnsWithoutAReference(s as string) as string"),
    METHOD(returnsTheArgument, "returnsTheArgument(s as string) as string"),
    METHOD(releasesTwice, "releasesTwice(s as string) as string"),
    METHOD(forgetsARecord, "forgetsARecord(s as string) as string"),
    METHOD(disposesTwice, "disposesTwice(s as string) as string"),
    METHOD(disposesAnEmptyRecord, "disposesAnEmptyRecord(s as string) as string"),
    METHOD(marksASharedString, "marksASharedString(s as string) as string"),
    METHOD(raisesTwice, "raisesTwice(s as string) as string"),
    METHOD(forgetsABlock, "forgetsABlock(m as memoryblock) as memoryblock"),
    METHOD(readsTheLength, "readsTheLength(s as string) as integer"),
    METHOD(readsBehindContents, "readsBehindContents(s as string) as integer"),
    METHOD(writesContents, "writesContents(s as string) as integer"),
    METHOD(readsBehindForm, "readsBehindForm(s as string) as integer"),
    METHOD(isAtOddAddress, "isAtOddAddress(s as string) as integer"),
    METHOD(counts, "counts(s as string) as integer"),
    METHOD(exceeds32Bits, "exceeds32Bits(s as string) as integer"),
    METHOD(isTwo, "isTwo(s as string) as boolean"),
    METHOD(form, "form(s as string) as string"),
    METHOD(structure, "structure(s as string) as string"),
    METHOD(returnsTheBlock, "returnsTheBlock(m as memoryblock) as memoryblock"),
    METHOD(kindOf, "kindOf(s as string) as string"),
    METHOD(half, "half(a as string, b as string) as double"),
    METHOD(isNull, "isNull(s as string) as boolean"),
    METHOD(isNegative, "isNegative(d as double) as string"),
    METHOD(showsArguments, "showsArguments(number as integer=-3, flag as boolean = true) as string"),
};

}  // namespace

extern "C" EXPORTED void REALPluginMain(HostResolver resolver) {
  gHost = resolver;
  auto* registerMethod = find<service::RegisterMethod>("PluginRegisterMethod");
  for (const MethodEntry& method : kMethods) registerMethod(&method);
}
