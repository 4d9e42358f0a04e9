#include "fuzz/trial.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

#include "fuzz/expectation.h"
#include "standin/transcode.h"

namespace fuzz {
namespace {

using namespace standin;  // NOLINT: the vocabulary of calls

constexpr const char* kWidest = STRING_PLUGIN_FILE;
constexpr const char* kAvx2 = AVX2_PLUGIN_FILE;
constexpr const char* kScalar = SCALAR_PLUGIN_FILE;

struct Setting {
  const char* plugin;
  Options host;
};

/// Hosts on both sides of every version that the plugin tells apart, and each way to hand text out at least twice; with
/// the kernels of every kind of CPU.
const std::array kSettings = {
    Setting{kAvx2, {.version = 2011.4, .logs = false}},
    Setting{kWidest,
            {.version = 2011.4, .terminated = false, .byteOrderMark = true, .oddStorage = true, .logs = false}},
    Setting{kWidest, {.version = 2012.0, .byteOrderMark = true, .swapped = true, .checking = true, .logs = false}},
    Setting{kScalar, {.version = 2013.0, .terminated = false, .swapped = true, .oddStorage = true, .logs = false}},
    Setting{kAvx2, {.version = 2013.04, .terminated = false, .byteOrderMark = true, .checking = true, .logs = false}},
    Setting{kScalar, {.version = 2015.03, .oddStorage = true, .checking = true, .logs = false}},
    Setting{kAvx2, {.version = 2016.0, .terminated = false, .logs = false}},
    Setting{kWidest, {.version = 2023.1, .logs = false}},
    Setting{kWidest, {.version = 2023.1, .terminated = false, .oddStorage = true, .checking = true, .logs = false}},
    Setting{kScalar, {.version = 2023.1, .byteOrderMark = true, .swapped = true, .logs = false}},
    Setting{kAvx2, {.version = 3000.0, .terminated = false, .byteOrderMark = true, .checking = true, .logs = false}},
    Setting{kWidest, {.version = 3000.0, .swapped = true, .oddStorage = true, .logs = false}},
};

Session& sessionOf(std::size_t number) {
  static std::array<std::unique_ptr<Session>, kSettings.size()> sessions;
  const Setting& setting = kSettings[number];
  if (sessions[number] == nullptr) sessions[number] = std::make_unique<Session>(setting.plugin, setting.host);
  return *sessions[number];
}

/// The last one is unknown to every host.
constexpr TextEncoding kEncodings[] = {kEncodingUTF8,  kEncodingNone,     kEncodingASCII,         kEncodingUTF16,
                                       kEncodingUTF32, kEncodingMacRoman, kEncodingWindowsLatin1, 0x0000'0A0A};

constexpr std::size_t kLongestText = 1024;

/// The bytes that are left. Once there are none, zeros come.
class Input {
 public:
  explicit Input(std::span<const std::uint8_t> bytes) noexcept : bytes_(bytes) {}

  std::uint8_t byte() noexcept {
    if (bytes_.empty()) return 0;
    const std::uint8_t first = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return first;
  }

  std::string take(std::size_t count) {
    count = std::min(count, bytes_.size());
    std::string taken(count, '\0');
    if (count > 0) std::memcpy(taken.data(), bytes_.data(), count);
    bytes_ = bytes_.subspan(count);
    return taken;
  }

  template <typename Number>
  Number number() {
    Number value{};
    take(sizeof value).copy(reinterpret_cast<char*>(&value), sizeof value);
    return value;
  }

  /// Some of the bytes, once or repeated, so that few of them make a long text. The last one takes what is left.
  std::string bytes(unsigned repetition, bool last) {
    const std::string part = take(last ? bytes_.size() : byte());
    constexpr std::size_t kTimes[] = {1, 2, 9, 40};
    std::string whole;
    for (std::size_t i = 0; i < kTimes[repetition % 4] && (i == 0 || whole.size() < kLongestText); ++i) whole += part;
    return whole;
  }

 private:
  std::span<const std::uint8_t> bytes_;
};

/// Bytes in an encoding, either as they are, or as the UTF-8 form of a text that is valid in it.
Text readText(Input& input, bool last) {
  const unsigned choice = input.byte();
  if (choice == 0xFF) return nullText();
  const TextEncoding encoding = kEncodings[choice % 8];
  std::string bytes = input.bytes(choice >> 3, last);
  if ((choice & 0x20) != 0 && isKnown(encoding)) bytes = *transcode(bytes, kEncodingUTF8, encoding);
  return marked(bytes, encoding);
}

Block readBlock(Input& input) {
  const unsigned choice = input.byte();
  return choice == 0xFF ? nilBlock() : block(input.bytes(choice, true));
}

std::int32_t readInteger(Input& input) {
  const std::uint8_t choice = input.byte();
  return choice == 0x80 ? input.number<std::int32_t>() : static_cast<std::int8_t>(choice);
}

Argument readArgument(Input& input, Type type, bool last) {
  switch (type) {
    case Type::kString:
      return readText(input, last);
    case Type::kInteger:
      return readInteger(input);
    case Type::kDouble:
      return input.number<double>();
    case Type::kBoolean:
      return (input.byte() & 1) != 0;
    case Type::kMemoryBlock:
      break;
  }
  return readBlock(input);
}

/// Arguments that would only cost memory or time are made smaller.
void spareResources(Trial& trial) {
  constexpr std::int64_t kMuch = 1 << 13;
  const std::string& name = trial.method->declaration.name;
  if (name == "RandomBytesStringZQV") {
    auto& length = std::get<std::int32_t>(trial.arguments[0]);
    length = std::min(length, std::int32_t{4096});
  } else if (name == "HexstringZQV") {
    auto& group = std::get<std::int32_t>(trial.arguments[1]);
    auto& groups = std::get<std::int32_t>(trial.arguments[2]);
    const std::int64_t digits = std::int64_t{group} * groups;
    if (group < 1 || groups < 1 || digits < kMuch || digits > INT32_MAX) return;
    group %= 64;
    groups %= 64;
  } else if (name == "LevenshteinDistanceZQV") {
    constexpr std::size_t kSeveralWords = 300;
    for (Argument& text : trial.arguments) {
      std::string& bytes = std::get<Text>(text).bytes;
      bytes.resize(std::min(bytes.size(), kSeveralWords));
    }
  }
}

std::string printed(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    char escape[5];
    std::snprintf(escape, sizeof escape, "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    text += c >= 0x20 && c < 0x7F && c != '\\' && c != '"' ? std::string(1, c) : std::string(escape);
  }
  return '"' + text + '"';
}

struct Printer {
  std::string operator()(const Text& text) const {
    if (text.null) return "null";
    char mark[24];
    std::snprintf(mark, sizeof mark, " in 0x%08X", static_cast<unsigned>(text.encoding));
    return printed(text.bytes) + mark;
  }
  std::string operator()(const Block& value) const { return value.nil ? "nil" : "block " + printed(value.bytes); }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(std::int32_t value) const { return std::to_string(value); }
  std::string operator()(std::int64_t value) const { return std::to_string(value); }
  std::string operator()(double value) const {
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.17g", value);
    return digits;
  }
};

template <typename Variant>
std::string printedValue(const Variant& value) {
  return std::visit(Printer(), value);
}

/// Where the result has no characters, the null string and one of zero bytes in any encoding are alike.
bool agree(const Result& expected, const Result& result) {
  const Text* a = std::get_if<Text>(&expected);
  const Text* b = std::get_if<Text>(&result);
  return expected == result || (a != nullptr && b != nullptr && a->bytes.empty() && b->bytes.empty());
}

std::string complaintAboutException(const Expectation& expected, const Outcome& outcome) {
  if (outcome.exception.has_value() == expected.exception.has_value()) {
    if (!outcome.exception || outcome.exception->className == *expected.exception) return {};
  }
  if (!outcome.exception) return "no exception, expected " + *expected.exception;
  return "exception " + outcome.exception->className + ": " + outcome.exception->message;
}

}  // namespace

Trial readTrial(std::string_view name, std::span<const std::uint8_t> bytes) {
  Input input(bytes);
  Trial trial;
  const std::size_t setting = input.byte() % kSettings.size();
  trial.session = &sessionOf(setting);
  trial.plugin = kSettings[setting].plugin;
  std::vector<const Method*> overloads;
  for (const Method& method : trial.session->methods()) {
    if (method.declaration.name == name) overloads.push_back(&method);
  }
  if (overloads.empty()) throw std::invalid_argument(std::string(name) + ": no such method");
  trial.method = overloads[overloads.size() > 1 ? input.byte() % overloads.size() : 0];
  const auto& parameters = trial.method->declaration.parameters;
  const auto isText = [](const Parameter& p) { return p.type == Type::kString; };
  const auto lastText = std::find_if(parameters.rbegin(), parameters.rend(), isText);
  // Numbers first: the last text takes all that is left.
  trial.arguments.resize(parameters.size());
  for (const bool texts : {false, true}) {
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      if (isText(parameters[i]) != texts) continue;
      trial.arguments[i] = readArgument(input, parameters[i].type, texts && &parameters[i] == &*lastText);
    }
  }
  spareResources(trial);
  return trial;
}

std::string describe(const Trial& trial) {
  const Options& host = trial.host().options();
  std::string text = trial.method->declaration.name + "(";
  for (std::size_t i = 0; i < trial.arguments.size(); ++i) {
    text += (i > 0 ? ", " : "") + printedValue(trial.arguments[i]);
  }
  text += ") in a host of version " + Printer()(host.version);
  if (!host.terminated) text += ", not terminated";
  if (host.byteOrderMark) text += ", with byte-order mark";
  if (host.swapped) text += ", swapped";
  if (host.oddStorage) text += ", odd storage";
  if (host.checking) text += ", checking";
  return text + "; " + trial.plugin;
}

std::string complaintAbout(const Trial& trial) {
  const Outcome outcome = trial.session->call(*trial.method, trial.arguments);
  for (const std::string& violation : outcome.violations) return violation;
  const Expectation expected = expectationOf(trial, outcome);
  if (std::string complaint = complaintAboutException(expected, outcome); !complaint.empty()) return complaint;
  if (expected.sameArgument && outcome.sameAsArgument != 0) return "the argument itself is expected";
  if (expected.result && !agree(*expected.result, outcome.result)) {
    return "result " + printedValue(outcome.result) + ", expected " + printedValue(*expected.result);
  }
  return {};
}

}  // namespace fuzz
