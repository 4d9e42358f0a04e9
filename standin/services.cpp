#include "standin/services.h"

#include <string_view>

#include "standin/object_services.h"
#include "standin/serving.h"
#include "standin/string_services.h"

namespace standin {
namespace {

constexpr const char* kLenBDeclaration = "LenB( s as string ) as integer";

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

HostEntry loadGlobalMethod(void* reserved, const char* declaration) {
  return serve(Service::kLoadGlobalMethod, [&](const Visit& visit) -> HostEntry {
    visit.host().noteLookup(declaration);
    if (reserved != nullptr) visit.report("the first argument is not null");
    const bool isLenB = std::string_view(declaration) == kLenBDeclaration;
    return isLenB && visit.host().offers(Service::kLenB) ? serviceEntry(Service::kLenB) : nullptr;
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
      erased<service::GetStringEncoding>(services::getStringEncoding),
      erased<service::LockString>(services::lockString),
      erased<service::UnlockString>(services::unlockString),
      erased<service::GetStringContents>(services::getStringContents),
      erased<service::LoadGlobalMethod>(loadGlobalMethod),
      erased<service::LenB>(services::lenB),
      erased<service::GetStringData>(services::getStringData),
      erased<service::DisposeStringData>(services::disposeStringData),
      erased<service::ConvertString>(services::convertString),
      erased<service::BuildStringWithEncoding>(services::buildStringWithEncoding),
      erased<service::BuildString>(services::buildString),
      erased<service::SetStringEncoding>(services::setStringEncoding),
      erased<service::NewInstance>(services::newInstance),
      erased<service::SetPropValueString>(services::setPropValueString),
      erased<service::SetPropValueInteger>(services::setPropValueInteger),
      erased<service::SetPropValueInteger>(services::setPropValueInt),
      erased<service::RaiseException>(services::raiseException),
      erased<service::LockObject>(services::lockObject),
      erased<service::UnlockObject>(services::unlockObject),
      erased<service::MemoryBlockGetSize>(services::memoryBlockGetSize),
      erased<service::MemoryBlockGetPtr>(services::memoryBlockGetPtr),
      erased<service::NewMemoryBlock>(services::newMemoryBlock),
  };
  return kEntries[static_cast<std::size_t>(service)];
}

}  // namespace standin
