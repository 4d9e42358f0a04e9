/// The services of the host, by number and by the name they are looked up under.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace standin {

enum class Service {
  kGetRBVersion,
  kRegisterPluginVersion,
  kInRuntime,
  kRegisterModule,
  kRegisterMethod,
  kGetStringEncoding,
  kLockString,
  kUnlockString,
  kGetStringContents,
  kLoadGlobalMethod,
  kLenB,
  kGetStringData,
  kDisposeStringData,
  kConvertString,
  kBuildStringWithEncoding,
  kBuildString,
  kSetStringEncoding,
  kNewInstance,
  kSetPropValueString,
  kSetPropValueInteger,
  kSetPropValueInt,
  kRaiseException,
  kLockObject,
  kUnlockObject,
  kMemoryBlockGetSize,
  kMemoryBlockGetPtr,
  kNewMemoryBlock,
};

/// In the order of the numbers. "LenB" is a method of the host's language, the others are looked up directly.
inline constexpr std::array kServiceNames = {
    "REALGetRBVersion",
    "RegisterPluginVersion",
    "REALinRuntime",
    "PluginRegisterModule",
    "PluginRegisterMethod",
    "REALGetStringEncoding",
    "REALLockString",
    "REALUnlockString",
    "StringGetCString",
    "REALLoadGlobalMethod",
    "LenB",
    "PluginGetStringData",
    "PluginDisposeStringData",
    "REALConvertString",
    "REALBuildStringWithEncoding",
    "REALBuildString",
    "REALSetStringEncoding",
    "PluginNewInstance",
    "REALSetPropValueString",
    "REALSetPropValueInteger",
    "REALSetPropValueInt",
    "RuntimeRaiseException",
    "REALLockObject",
    "REALUnlockObject",
    "memoryBlockGetSize",
    "memoryBlockGetPtr",
    "newMemoryBlock",
};
inline constexpr std::size_t kServiceCount = kServiceNames.size();
static_assert(kServiceCount == static_cast<std::size_t>(Service::kNewMemoryBlock) + 1);

[[nodiscard]] constexpr const char* nameOf(Service service) noexcept {
  return kServiceNames[static_cast<std::size_t>(service)];
}

[[nodiscard]] constexpr std::optional<Service> serviceNamed(std::string_view name) noexcept {
  for (std::size_t index = 0; index < kServiceCount; ++index) {
    if (name == kServiceNames[index]) return static_cast<Service>(index);
  }
  return std::nullopt;
}

}  // namespace standin
