/// Every service the plugin asks of the host: wrapper, name it is looked up under and, where it isn't null or
/// zero, the answer of a host without it. "REALGetRBVersion" and "RegisterPluginVersion" are looked up at start only.
#pragma once

#include "host/host_service.h"
#include "host/records.h"

// clang-format off

// Start and registration.
inline constinit HostService<service::InRuntime>      REALinRuntime{"REALinRuntime"};
inline constinit HostService<service::RegisterModule> REALRegisterModule{"PluginRegisterModule"};
inline constinit HostService<service::RegisterMethod> REALRegisterMethod{"PluginRegisterMethod"};

// Functions of the host language, resolved by their declaration.
inline constinit HostService<service::LoadGlobalMethod> REALLoadFrameworkMethod{"REALLoadGlobalMethod"};

[[nodiscard]] inline HostEntry lookUpGlobalMethod(const char* declaration) noexcept {
  return REALLoadFrameworkMethod(nullptr, declaration);
}

// Strings.
inline constinit HostService<service::GetStringEncoding> REALGetStringEncoding{"REALGetStringEncoding", kEncodingASCII};
inline constinit HostService<service::LockString>        REALLockString{"REALLockString"};
inline constinit HostService<service::UnlockString>      REALUnlockString{"REALUnlockString"};
inline constinit HostService<service::GetStringContents> REALGetStringContents{"StringGetCString"};
inline constinit HostService<service::LenB>              LenB{"LenB( s as string ) as integer", 0, lookUpGlobalMethod};
inline constinit HostService<service::GetStringData>     REALGetStringData{"PluginGetStringData"};
inline constinit HostService<service::DisposeStringData> REALDisposeStringData{"PluginDisposeStringData"};
inline constinit HostService<service::ConvertString>     REALConvertString{"REALConvertString"};

inline constinit HostService<service::BuildStringWithEncoding> REALBuildStringWithEncoding{"REALBuildStringWithEncoding"};
inline constinit HostService<service::BuildString>             originalREALBuildString{"REALBuildString"};
inline constinit HostService<service::SetStringEncoding>       REALSetStringEncoding{"REALSetStringEncoding"};

// Objects and exceptions.
inline constinit HostService<service::NewInstance>         REALnewInstance{"PluginNewInstance"};
inline constinit HostService<service::SetPropValueString>  REALSetPropValueString{"REALSetPropValueString"};
inline constinit HostService<service::SetPropValueInteger> REALSetPropValueInteger{"REALSetPropValueInteger", "REALSetPropValueInt"};
inline constinit HostService<service::RaiseException>      REALRaiseException{"RuntimeRaiseException"};
inline constinit HostService<service::LockObject>          REALLockObject{"REALLockObject"};
inline constinit HostService<service::UnlockObject>        REALUnlockObject{"REALUnlockObject"};

// Memory blocks.
inline constinit HostService<service::MemoryBlockGetSize> REALMemoryBlockGetSize{"memoryBlockGetSize"};
inline constinit HostService<service::MemoryBlockGetPtr>  REALMemoryBlockGetPtr{"memoryBlockGetPtr"};
inline constinit HostService<service::NewMemoryBlock>     REALNewMemoryBlockOriginal{"newMemoryBlock"};

// clang-format on
