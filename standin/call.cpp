#include "standin/call.h"

#include <algorithm>
#include <string>
#include <type_traits>
#include <utility>

namespace standin {
namespace {

/// The letter of a type in a signature: S string, M memory block, I integer, D double, B boolean.
template <typename T>
constexpr char letterOf() {
  if constexpr (std::is_same_v<T, REALstringStruct*>) return 'S';
  if constexpr (std::is_same_v<T, REALmemoryBlockStruct*>) return 'M';
  if constexpr (std::is_same_v<T, std::int32_t> || std::is_same_v<T, HostInteger>) return 'I';
  if constexpr (std::is_same_v<T, double>) return 'D';
  if constexpr (std::is_same_v<T, HostBooleanArgument> || std::is_same_v<T, HostBoolean>) return 'B';
}

constexpr char letterOf(Type type) {
  constexpr char kLetters[] = {'S', 'I', 'D', 'B', 'M'};
  return kLetters[static_cast<int>(type)];
}

template <typename T>
T fromValue(const Value& value) {
  if constexpr (letterOf<T>() == 'S') return value.string;
  if constexpr (letterOf<T>() == 'M') return value.block;
  if constexpr (letterOf<T>() == 'I') return static_cast<T>(value.integer);
  if constexpr (letterOf<T>() == 'D') return value.number;
  if constexpr (letterOf<T>() == 'B') return value.boolean;
}

template <typename T>
Value toValue(T result) {
  Value value;
  if constexpr (letterOf<T>() == 'S') value.string = result;
  if constexpr (letterOf<T>() == 'M') value.block = result;
  if constexpr (letterOf<T>() == 'I') value.integer = result;
  if constexpr (letterOf<T>() == 'D') value.number = result;
  if constexpr (letterOf<T>() == 'B') value.boolean = result;
  return value;
}

template <typename Member>
struct Signature;

template <typename Result, typename... Parameters>
struct Signature<Result (*MethodFunction::*)(Parameters...)> {
  static constexpr char kLetters[] = {letterOf<Result>(), letterOf<Parameters>()..., '\0'};

  static Value call(Result (*function)(Parameters...), const Value* arguments) {
    return call(function, arguments, std::index_sequence_for<Parameters...>());
  }

 private:
  template <std::size_t... kIndex>
  static Value call(Result (*function)(Parameters...), const Value* arguments, std::index_sequence<kIndex...>) {
    return toValue(function(fromValue<Parameters>(arguments[kIndex])...));
  }
};

struct Row {
  const char* letters;
  Invoker invoker;
};

template <auto kMember>
constexpr Row row() {
  return {Signature<decltype(kMember)>::kLetters, [](const MethodFunction& function, const Value* arguments) {
            return Signature<decltype(kMember)>::call(function.*kMember, arguments);
          }};
}

using F = MethodFunction;
constexpr Row kRows[] = {
    row<&F::s_s>(),      row<&F::s_ss>(), row<&F::s_sss>(), row<&F::s_ssss>(),    row<&F::s_sssss>(),
    row<&F::s_ssssss>(), row<&F::s_si>(), row<&F::s_ssi>(), row<&F::s_siissss>(), row<&F::s_i>(),
    row<&F::s_ib>(),     row<&F::s_d>(),  row<&F::s_di>(),  row<&F::m_m>(),       row<&F::i_s>(),
    row<&F::i_ss>(),     row<&F::d_ss>(), row<&F::b_s>(),   row<&F::b_si>(),
};

}  // namespace

Invoker invokerFor(const Declaration& declaration) noexcept {
  std::string letters{letterOf(declaration.result)};
  for (const Parameter& parameter : declaration.parameters) letters += letterOf(parameter.type);
  const auto* found =
      std::find_if(std::begin(kRows), std::end(kRows), [&](const Row& r) { return letters == r.letters; });
  return found == std::end(kRows) ? nullptr : found->invoker;
}

}  // namespace standin
