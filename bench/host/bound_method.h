/// A registered method together with the arguments of one call.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "bench/corpus/input.h"
#include "host/records.h"

namespace lean {

/// The arguments of one call as host values. Owns its strings and blocks.
class HostArguments {
 public:
  explicit HostArguments(const Input& input);
  ~HostArguments();
  HostArguments(HostArguments&& other) noexcept;
  HostArguments(const HostArguments&) = delete;

  std::vector<REALstringStruct*> strings;
  std::vector<std::int32_t> integers;
  std::vector<double> numbers;
  REALmemoryBlockStruct* block = nullptr;
};

/// What a method answered: a string or block, which the holder owns, or a number.
struct Answer {
  REALstringStruct* string = nullptr;
  REALmemoryBlockStruct* block = nullptr;
  double number = 0;
};

void release(const Answer& answer) noexcept;

/// The answer's bytes, or its number as text; for comparing.
[[nodiscard]] std::string textOf(const Answer& answer);

using BoundMethod = std::function<Answer()>;

/// Binds a method to arguments, which have to outlive the binding. Its parameters are taken from them by type, in
/// order. Throws `std::invalid_argument` for a declaration of a form that isn't known.
[[nodiscard]] BoundMethod bind(const MethodEntry& method, const HostArguments& arguments);

}  // namespace lean
