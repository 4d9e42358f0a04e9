/// The binary interface to the host: handles, record layouts and function types.
///
/// Every record is a natural C struct of pointers and fixed-width integers. On 32-bit targets that is the
/// layout the host documents, to the byte; on 64-bit targets it is its natural widening.
#pragma once

#include <cstddef>
#include <cstdint>

#include "host/encodings.h"

/// Integer results of methods, and integer and length arguments of services: pointer-wide and sign-extended,
/// so that a host whose integer is wider than 32 bits reads the same value.
using HostInteger = std::intptr_t;

/// A boolean result: one byte, 0 or 1.
using HostBoolean = std::uint8_t;

/// A boolean parameter of a method. Only the low 8 bits count, the rest of the register may hold anything.
using HostBooleanArgument = std::uint32_t;

[[nodiscard]] constexpr bool isTrue(HostBooleanArgument argument) noexcept { return (argument & 0xFFU) != 0; }

/// A reference-counted object of the host; opaque.
struct REALobjectStruct;

/// A block of bytes owned by the host; opaque, and an object for the purpose of references.
struct REALmemoryBlockStruct;

/// A reference-counted, immutable string of the host; the null handle is the empty string.
/// The fields are read only on hosts below 2016.0.
struct REALstringStruct {
  std::int32_t reserved0;
  const std::uint8_t* storage;  ///< one byte before the contents
  std::int32_t reserved1;
  std::int32_t length;  ///< in bytes
  TextEncoding encoding;
};

/// A text converted by "PluginGetStringData". Once filled it has to be given back exactly once.
struct StringDataRecord {
  const void* data;
  std::int32_t length;  ///< in bytes
  void* reserved[3];
};

/// An entry point of the host or of the plugin, before its type is known.
using HostEntry = void (*)();

/// The host's resolver: the entry point of the service of that name, or null.
using HostResolver = HostEntry (*)(const char* name);

/// The implementation of a registered method: one member for each signature in use, so that the method table
/// is a constant and a function of any other signature doesn't compile.
/// Letters: S string, M memory block, I integer, D double, B boolean; the result comes first.
union MethodFunction {
  using S = REALstringStruct*;
  using M = REALmemoryBlockStruct*;
  using I = std::int32_t;
  using D = double;

  using S_S = S (*)(S);
  using S_SS = S (*)(S, S);
  using S_SSS = S (*)(S, S, S);
  using S_SSSS = S (*)(S, S, S, S);
  using S_SSSSS = S (*)(S, S, S, S, S);
  using S_SSSSSS = S (*)(S, S, S, S, S, S);
  using S_SI = S (*)(S, I);
  using S_SSI = S (*)(S, S, I);
  using S_SIISSSS = S (*)(S, I, I, S, S, S, S);
  using S_I = S (*)(I);
  using S_IB = S (*)(I, HostBooleanArgument);
  using S_D = S (*)(D);
  using S_DI = S (*)(D, I);
  using M_M = M (*)(M);
  using I_S = HostInteger (*)(S);
  using I_SS = HostInteger (*)(S, S);
  using D_SS = D (*)(S, S);
  using B_S = HostBoolean (*)(S);
  using B_SI = HostBoolean (*)(S, I);

  HostEntry entry;
  S_S s_s;
  S_SS s_ss;
  S_SSS s_sss;
  S_SSSS s_ssss;
  S_SSSSS s_sssss;
  S_SSSSSS s_ssssss;
  S_SI s_si;
  S_SSI s_ssi;
  S_SIISSSS s_siissss;
  S_I s_i;
  S_IB s_ib;
  S_D s_d;
  S_DI s_di;
  M_M m_m;
  I_S i_s;
  I_SS i_ss;
  D_SS d_ss;
  B_S b_s;
  B_SI b_si;

  constexpr MethodFunction() noexcept : entry(nullptr) {}
  constexpr MethodFunction(S_S function) noexcept : s_s(function) {}
  constexpr MethodFunction(S_SS function) noexcept : s_ss(function) {}
  constexpr MethodFunction(S_SSS function) noexcept : s_sss(function) {}
  constexpr MethodFunction(S_SSSS function) noexcept : s_ssss(function) {}
  constexpr MethodFunction(S_SSSSS function) noexcept : s_sssss(function) {}
  constexpr MethodFunction(S_SSSSSS function) noexcept : s_ssssss(function) {}
  constexpr MethodFunction(S_SI function) noexcept : s_si(function) {}
  constexpr MethodFunction(S_SSI function) noexcept : s_ssi(function) {}
  constexpr MethodFunction(S_SIISSSS function) noexcept : s_siissss(function) {}
  constexpr MethodFunction(S_I function) noexcept : s_i(function) {}
  constexpr MethodFunction(S_IB function) noexcept : s_ib(function) {}
  constexpr MethodFunction(S_D function) noexcept : s_d(function) {}
  constexpr MethodFunction(S_DI function) noexcept : s_di(function) {}
  constexpr MethodFunction(M_M function) noexcept : m_m(function) {}
  constexpr MethodFunction(I_S function) noexcept : i_s(function) {}
  constexpr MethodFunction(I_SS function) noexcept : i_ss(function) {}
  constexpr MethodFunction(D_SS function) noexcept : d_ss(function) {}
  constexpr MethodFunction(B_S function) noexcept : b_s(function) {}
  constexpr MethodFunction(B_SI function) noexcept : b_si(function) {}
};

/// The host's definition of one method.
struct MethodEntry {
  MethodFunction function;
  HostEntry setter;
  const char* declaration;
  std::uint32_t flags;
  std::uint32_t attributeCount;
  const void* attributes;
};

/// The host's definition of a module. The plugin's module declares nothing besides its methods.
struct ModuleRecord {
  std::int32_t version;
  const char* name;
  const MethodEntry* methods;
  std::uint32_t methodCount;
  std::uintptr_t unused[20];
};

namespace layout {

/// One size or offset as it has to be: `narrow` with 32-bit pointers, `wide` with 64-bit ones.
[[nodiscard]] consteval bool matches(std::size_t actual, std::size_t narrow, std::size_t wide) {
  return actual == (sizeof(void*) == 4 ? narrow : wide);
}

static_assert(matches(sizeof(MethodEntry), 24, 40));
static_assert(matches(offsetof(MethodEntry, function), 0, 0));
static_assert(matches(offsetof(MethodEntry, setter), 4, 8));
static_assert(matches(offsetof(MethodEntry, declaration), 8, 16));
static_assert(matches(offsetof(MethodEntry, flags), 12, 24));
static_assert(matches(offsetof(MethodEntry, attributeCount), 16, 28));
static_assert(matches(offsetof(MethodEntry, attributes), 20, 32));

static_assert(matches(sizeof(ModuleRecord), 96, 192));
static_assert(matches(offsetof(ModuleRecord, version), 0, 0));
static_assert(matches(offsetof(ModuleRecord, name), 4, 8));
static_assert(matches(offsetof(ModuleRecord, methods), 8, 16));
static_assert(matches(offsetof(ModuleRecord, methodCount), 12, 24));
static_assert(matches(offsetof(ModuleRecord, unused), 16, 32));

static_assert(matches(offsetof(REALstringStruct, storage), 4, 8));
static_assert(matches(offsetof(REALstringStruct, length), 12, 20));
static_assert(matches(offsetof(REALstringStruct, encoding), 16, 24));

static_assert(matches(sizeof(StringDataRecord), 20, 40));
static_assert(matches(offsetof(StringDataRecord, data), 0, 0));
static_assert(matches(offsetof(StringDataRecord, length), 4, 8));

}  // namespace layout

/// Types of the host's services, by the name each is looked up under.
namespace service {

using GetRBVersion = double();
using RegisterPluginVersion = void(HostInteger controlVersion);
using InRuntime = HostBoolean();
using RegisterModule = void(ModuleRecord* module);
using RegisterMethod = void(const MethodEntry* method);
using GetStringEncoding = TextEncoding(REALstringStruct* string);
using LockString = void(REALstringStruct* string);
using UnlockString = void(REALstringStruct* string);
using GetStringContents = const void*(REALstringStruct* string);
using LoadGlobalMethod = HostEntry(void* reserved, const char* declaration);
using LenB = std::int32_t(REALstringStruct* string);
using GetStringData = HostBoolean(REALstringStruct* string, TextEncoding encoding, StringDataRecord* record);
using DisposeStringData = void(StringDataRecord* record);
using ConvertString = REALstringStruct*(REALstringStruct* string, TextEncoding encoding);
using BuildStringWithEncoding = REALstringStruct*(const void* bytes, HostInteger byteLength, TextEncoding encoding);
using BuildString = REALstringStruct*(const void* bytes, HostInteger byteLength);
using SetStringEncoding = void(REALstringStruct* string, TextEncoding encoding);
using NewInstance = REALobjectStruct*(const char* className);
using SetPropValueString = void(REALobjectStruct* object, const char* property, REALstringStruct* value);
using SetPropValueInteger = void(REALobjectStruct* object, const char* property, HostInteger value);
using RaiseException = void(REALobjectStruct* exception);
using LockObject = void(REALobjectStruct* object);
using UnlockObject = void(REALobjectStruct* object);
using MemoryBlockGetSize = std::int32_t(REALmemoryBlockStruct* block);
using MemoryBlockGetPtr = void*(REALmemoryBlockStruct* block);
using NewMemoryBlock = REALmemoryBlockStruct*(HostInteger size);

}  // namespace service
