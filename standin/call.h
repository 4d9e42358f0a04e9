/// Calls of a plugin's functions by their declared signature.
#pragma once

#include <span>

#include "host/records.h"
#include "standin/declaration.h"

namespace standin {

/// A value as it crosses the interface; which member counts, the declaration says.
struct Value {
  REALstringStruct* string = nullptr;
  REALmemoryBlockStruct* block = nullptr;
  HostInteger integer = 0;  ///< an argument has 32 bits
  double number = 0;
  HostBooleanArgument boolean = 0;  ///< a result has 8 bits
};

/// Calls a function of one certain signature.
using Invoker = Value (*)(const MethodFunction& function, const Value* arguments);

/// The invoker for a method of this declaration, or null where no method of that signature is known.
[[nodiscard]] Invoker invokerFor(const Declaration& declaration) noexcept;

}  // namespace standin
