#include "standin/services.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>

#include "standin/account.h"
#include "standin/transcode.h"

namespace standin {
namespace {

constexpr const char* kLenBDeclaration = "LenB( s as string ) as integer";

/// A converted form that was handed out in a record.
class Form final : public Counted {
 public:
  Form(std::string_view bytes, const Contents::Layout& layout) : Counted(Kind::kRecord), contents(bytes, layout) {}
  void dissolve() noexcept override { contents = Contents(); }
  std::string description() const override { return "record of " + std::to_string(contents.size()) + " bytes"; }

  Contents contents;
};

/// Tells a record the host filled from one it never saw.
char gRecordSeal;

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
HostString* open(const Visit& visit, REALstringStruct* handle) {
  if (handle == nullptr) return nullptr;
  HostString* const string = HostString::of(handle);
  if (string->isAlive()) return string;
  visit.report("the string was released before");
  return nullptr;
}

template <typename Object>
Object* open(const Visit& visit, Object* object) {
  if (object == nullptr || object->isAlive()) return object;
  visit.report("the object was released before");
  return nullptr;
}

ExceptionObject* openException(const Visit& visit, REALobjectStruct* object) {
  if (object == nullptr) {
    visit.report("no object");
    return nullptr;
  }
  auto* const exception = dynamic_cast<ExceptionObject*>(open(visit, object));
  if (exception == nullptr) visit.report("the object is no exception");
  return exception;
}

// --- Start and registration

double getRBVersion() {
  return serve(Service::kGetRBVersion, [](const Visit& visit) { return visit.host().options().version; });
}

void registerPluginVersion(HostInteger version) {
  serve(Service::kRegisterPluginVersion,
        [&](const Visit& visit) { visit.host().registration().controlVersions.push_back(version); });
}

HostBoolean inRuntime() {
  return serve(Service::kInRuntime, [](const Visit& visit) -> HostBoolean { return visit.host().options().running; });
}

void registerModule(ModuleRecord* module) {
  serve(Service::kRegisterModule, [&](const Visit& visit) {
    Registration& registration = visit.host().registration();
    Host::keepForever(module);
    registration.modules.push_back(module);
    registration.methods.insert(registration.methods.end(), module->methods, module->methods + module->methodCount);
  });
}

void registerMethod(const MethodEntry* method) {
  serve(Service::kRegisterMethod, [&](const Visit& visit) { visit.host().registration().methods.push_back(*method); });
}

// --- Reading strings

TextEncoding getStringEncoding(REALstringStruct* handle) {
  return serve(Service::kGetStringEncoding, [&](const Visit& visit) -> TextEncoding {
    if (const auto answer = visit.host().answer(Service::kGetStringEncoding)) return static_cast<TextEncoding>(*answer);
    const HostString* string = open(visit, handle);
    return string == nullptr ? kEncodingNone : string->mark();
  });
}

void lockString(REALstringStruct* handle) {
  serve(Service::kLockString, [&](const Visit& visit) {
    if (HostString* string = open(visit, handle)) string->retain();
  });
}

void unlockString(REALstringStruct* handle) {
  serve(Service::kUnlockString, [&](const Visit& visit) { visit.host().release(open(visit, handle)); });
}

const void* getStringContents(REALstringStruct* handle) {
  return serve(Service::kGetStringContents, [&](const Visit& visit) -> const void* {
    const HostString* string = open(visit, handle);
    return string == nullptr ? nullptr : string->data();
  });
}

std::int32_t lenB(REALstringStruct* handle) {
  return serve(Service::kLenB, [&](const Visit& visit) -> std::int32_t {
    if (const auto answer = visit.host().answer(Service::kLenB)) return static_cast<std::int32_t>(*answer);
    const HostString* string = open(visit, handle);
    return string == nullptr ? 0 : static_cast<std::int32_t>(string->bytes().size());
  });
}

HostEntry loadGlobalMethod(void* reserved, const char* declaration) {
  return serve(Service::kLoadGlobalMethod, [&](const Visit& visit) -> HostEntry {
    visit.host().noteLookup(declaration);
    if (reserved != nullptr) visit.report("the first argument is not null");
    const bool isLenB = std::string_view(declaration) == kLenBDeclaration;
    return isLenB && visit.host().offers(Service::kLenB) ? serviceEntry(Service::kLenB) : nullptr;
  });
}

// --- Converting

HostBoolean getStringData(REALstringStruct* handle, TextEncoding encoding, StringDataRecord* record) {
  return serve(Service::kGetStringData, [&](const Visit& visit) -> HostBoolean {
    Host& host = visit.host();
    const HostString* string = open(visit, handle);
    auto text = string == nullptr ? transcode({}, kEncodingUTF8, encoding)
                                  : transcode(string->bytes(), string->mark(), encoding);
    if (!text) return false;
    host.dress(*text, encoding);
    Form* const form = host.own(std::make_unique<Form>(*text, host.formLayout(encoding)));
    record->data = host.options().recordsWithoutData ? nullptr : form->contents.data();
    record->length = static_cast<std::int32_t>(std::max<std::size_t>(text->size(), record->data ? 0 : 4));
    record->reserved[0] = form;
    record->reserved[1] = &gRecordSeal;
    record->reserved[2] = record;
    return true;
  });
}

void disposeStringData(StringDataRecord* record) {
  serve(Service::kDisposeStringData, [&](const Visit& visit) {
    if (record->reserved[1] != &gRecordSeal) return visit.report("the host never filled the record");
    auto* const form = static_cast<Form*>(record->reserved[0]);
    if (!form->isAlive()) return visit.report("the record was given back before");
    visit.host().release(form);
  });
}

REALstringStruct* convertString(REALstringStruct* handle, TextEncoding encoding) {
  return serve(Service::kConvertString, [&](const Visit& visit) -> REALstringStruct* {
    const HostString* string = open(visit, handle);
    if (string == nullptr) return nullptr;
    auto text = transcode(string->bytes(), string->mark(), encoding);
    if (!text) return nullptr;
    visit.host().dress(*text, encoding);
    return visit.host().makeConverted(*text, encoding);
  });
}

// --- Building strings

REALstringStruct* build(const Visit& visit, const void* bytes, HostInteger length, TextEncoding encoding) {
  if (length < 0 || length > INT32_MAX || (bytes == nullptr && length > 0)) return nullptr;
  return visit.host().makeConverted({static_cast<const char*>(bytes), static_cast<std::size_t>(length)}, encoding);
}

REALstringStruct* buildStringWithEncoding(const void* bytes, HostInteger length, TextEncoding encoding) {
  return serve(Service::kBuildStringWithEncoding,
               [&](const Visit& visit) { return build(visit, bytes, length, encoding); });
}

REALstringStruct* buildString(const void* bytes, HostInteger length) {
  return serve(Service::kBuildString, [&](const Visit& visit) { return build(visit, bytes, length, kEncodingNone); });
}

void setStringEncoding(REALstringStruct* handle, TextEncoding encoding) {
  serve(Service::kSetStringEncoding, [&](const Visit& visit) {
    HostString* const string = open(visit, handle);
    if (string == nullptr) return visit.report("no string to mark");
    if (string->references() != 1) visit.report("a string that others hold, too, is immutable");
    string->setMark(encoding);
  });
}

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

template <Service kName>
void setPropValueInteger(REALobjectStruct* object, const char* property, HostInteger value) {
  serve(kName, [&](const Visit& visit) {
    ExceptionObject* const exception = openException(visit, object);
    if (exception == nullptr) return;
    if (std::string_view(property) != "ErrorNumber") return visit.report("no such property");
    exception->raised.errorNumber = value;
  });
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

/// Erases the type of an entry point, after checking it against the documented one.
template <typename Documented>
HostEntry erased(Documented* function) noexcept {
  return reinterpret_cast<HostEntry>(function);
}

}  // namespace

HostEntry serviceEntry(Service service) noexcept {
  static const HostEntry kEntries[kServiceCount] = {
      erased<service::GetRBVersion>(getRBVersion),
      erased<service::RegisterPluginVersion>(registerPluginVersion),
      erased<service::InRuntime>(inRuntime),
      erased<service::RegisterModule>(registerModule),
      erased<service::RegisterMethod>(registerMethod),
      erased<service::GetStringEncoding>(getStringEncoding),
      erased<service::LockString>(lockString),
      erased<service::UnlockString>(unlockString),
      erased<service::GetStringContents>(getStringContents),
      erased<service::LoadGlobalMethod>(loadGlobalMethod),
      erased<service::LenB>(lenB),
      erased<service::GetStringData>(getStringData),
      erased<service::DisposeStringData>(disposeStringData),
      erased<service::ConvertString>(convertString),
      erased<service::BuildStringWithEncoding>(buildStringWithEncoding),
      erased<service::BuildString>(buildString),
      erased<service::SetStringEncoding>(setStringEncoding),
      erased<service::NewInstance>(newInstance),
      erased<service::SetPropValueString>(setPropValueString),
      erased<service::SetPropValueInteger>(setPropValueInteger<Service::kSetPropValueInteger>),
      erased<service::SetPropValueInteger>(setPropValueInteger<Service::kSetPropValueInt>),
      erased<service::RaiseException>(raiseException),
      erased<service::LockObject>(lockObject),
      erased<service::UnlockObject>(unlockObject),
      erased<service::MemoryBlockGetSize>(memoryBlockGetSize),
      erased<service::MemoryBlockGetPtr>(memoryBlockGetPtr),
      erased<service::NewMemoryBlock>(newMemoryBlock),
  };
  return kEntries[static_cast<std::size_t>(service)];
}

}  // namespace standin
