#include "bench/host/bound_method.h"

#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "bench/host/lean_string.h"

namespace {

/// Hands out arguments by type, in order.
class Reader {
 public:
  explicit Reader(const lean::HostArguments& arguments) : arguments_(arguments) {}

  template <typename Parameter>
  Parameter next() {
    if constexpr (std::is_same_v<Parameter, REALstringStruct*>) {
      return string_ < arguments_.strings.size() ? arguments_.strings[string_++] : nullptr;
    } else if constexpr (std::is_same_v<Parameter, REALmemoryBlockStruct*>) {
      return arguments_.block;
    } else if constexpr (std::is_same_v<Parameter, double>) {
      return arguments_.numbers.at(number_++);
    } else {
      return static_cast<Parameter>(arguments_.integers.at(integer_++));
    }
  }

 private:
  const lean::HostArguments& arguments_;
  std::size_t string_ = 0;
  std::size_t integer_ = 0;
  std::size_t number_ = 0;
};

lean::Answer answer(REALstringStruct* string) noexcept { return {string, nullptr, 0}; }
lean::Answer answer(REALmemoryBlockStruct* block) noexcept { return {nullptr, block, 0}; }
lean::Answer answer(double number) noexcept { return {nullptr, nullptr, number}; }
lean::Answer answer(HostInteger number) noexcept { return answer(static_cast<double>(number)); }
lean::Answer answer(HostBoolean flag) noexcept { return answer(static_cast<double>(flag)); }

template <typename Result, typename... Parameters>
lean::BoundMethod bindTo(Result (*function)(Parameters...), const lean::HostArguments& arguments) {
  Reader reader(arguments);
  const std::tuple<Parameters...> values{reader.next<Parameters>()...};
  return [function, values] { return answer(std::apply(function, values)); };
}

using Binder = lean::BoundMethod (*)(const MethodFunction&, const lean::HostArguments&);

template <auto member>
lean::BoundMethod bindMember(const MethodFunction& function, const lean::HostArguments& arguments) {
  return bindTo(function.*member, arguments);
}

/// The letter of a type in a declaration; parameters and the result are what " as " precedes.
char letterOf(std::string_view type) {
  if (type.starts_with("string")) return 'S';
  if (type.starts_with("memoryblock")) return 'M';
  if (type.starts_with("integer")) return 'I';
  if (type.starts_with("double")) return 'D';
  return 'B';
}

/// The signature of a declaration: letters of the parameters, then that of the result.
std::string signatureOf(std::string_view declaration) {
  constexpr std::string_view kAs = " as ";
  std::string letters;
  for (std::size_t at = declaration.find(kAs); at != declaration.npos; at = declaration.find(kAs, at + 1)) {
    letters += letterOf(declaration.substr(at + kAs.size()));
  }
  return letters;
}

constexpr std::pair<const char*, Binder> kBinders[] = {
    {"SS", bindMember<&MethodFunction::s_s>},
    {"SSS", bindMember<&MethodFunction::s_ss>},
    {"SSSS", bindMember<&MethodFunction::s_sss>},
    {"SSSSS", bindMember<&MethodFunction::s_ssss>},
    {"SSSSSS", bindMember<&MethodFunction::s_sssss>},
    {"SSSSSSS", bindMember<&MethodFunction::s_ssssss>},
    {"SIS", bindMember<&MethodFunction::s_si>},
    {"SSIS", bindMember<&MethodFunction::s_ssi>},
    {"SIISSSSS", bindMember<&MethodFunction::s_siissss>},
    {"IS", bindMember<&MethodFunction::s_i>},
    {"IBS", bindMember<&MethodFunction::s_ib>},
    {"DS", bindMember<&MethodFunction::s_d>},
    {"DIS", bindMember<&MethodFunction::s_di>},
    {"MM", bindMember<&MethodFunction::m_m>},
    {"SI", bindMember<&MethodFunction::i_s>},
    {"SSI", bindMember<&MethodFunction::i_ss>},
    {"SSD", bindMember<&MethodFunction::d_ss>},
    {"SB", bindMember<&MethodFunction::b_s>},
    {"SIB", bindMember<&MethodFunction::b_si>},
};

}  // namespace

lean::HostArguments::HostArguments(const Input& input) : integers(input.integers), numbers(input.numbers) {
  for (const Text& text : input.texts) strings.push_back(makeString(text.bytes, text.encoding));
  if (input.texts.empty()) return;
  block = makeBlock(std::ssize(input.texts[0].bytes));
  std::memcpy(dataOf(block), input.texts[0].bytes.data(), input.texts[0].bytes.size());
}

lean::HostArguments::HostArguments(HostArguments&& other) noexcept
    : strings(std::exchange(other.strings, {})),
      integers(std::move(other.integers)),
      numbers(std::move(other.numbers)),
      block(std::exchange(other.block, nullptr)) {}

lean::HostArguments::~HostArguments() {
  for (REALstringStruct* const string : strings) {
    if (string != nullptr) drop(string);
  }
  if (block != nullptr) drop(block);
}

void lean::release(const Answer& answer) noexcept {
  if (answer.string != nullptr) drop(answer.string);
  if (answer.block != nullptr) drop(answer.block);
}

std::string lean::textOf(const Answer& answer) {
  if (answer.block != nullptr) {
    return {reinterpret_cast<const char*>(dataOf(answer.block)), static_cast<std::size_t>(sizeOf(answer.block))};
  }
  if (answer.string != nullptr) {
    const ByteView bytes = bytesOf(answer.string);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  }
  char text[32];
  const int length = std::snprintf(text, sizeof text, "%.12g", answer.number);
  return {text, static_cast<std::size_t>(length)};
}

lean::BoundMethod lean::bind(const MethodEntry& method, const HostArguments& arguments) {
  const std::string signature = signatureOf(method.declaration);
  for (const auto& [known, binder] : kBinders) {
    if (signature == known) return binder(method.function, arguments);
  }
  throw std::invalid_argument(std::string("no call for ") + method.declaration);
}
