#include "stringhost/output.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

#include "standin/transcode.h"
#include "stringhost/encoding_names.h"
#include "stringhost/numbers.h"
#include "stringhost/printable.h"
#include "stringhost/timing.h"

namespace stringhost {
namespace {

using nlohmann::ordered_json;

/// The text in UTF-8, or nothing for bytes that aren't text. A mark of ASCII tells little of bytes beyond it, and no
/// mark tells nothing: they are tried as UTF-8.
std::optional<std::string> readable(const standin::Text& text) {
  const bool isUtf8 =
      text.encoding == kEncodingNone || text.encoding == kEncodingASCII || text.encoding == kEncodingUTF8;
  auto utf8 = !isUtf8 ? standin::transcode(text.bytes, text.encoding, kEncodingUTF8) : std::optional(text.bytes);
  if (!utf8) return std::nullopt;
  if (std::all_of(utf8->begin(), utf8->end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; })) return utf8;
  // Malformed text would not come back from another form as it was.
  const std::string wide = *standin::transcode(*utf8, kEncodingUTF8, kEncodingUTF32);
  return *standin::transcode(wide, kEncodingUTF32, kEncodingUTF8) == *utf8 ? utf8 : std::nullopt;
}

std::string shown(const standin::Text& text) {
  const auto utf8 = readable(text);
  return utf8 && isPrintable(*utf8) ? *utf8 : "hex:" + hexDigits(text.bytes);
}

std::string digits(double number) { return std::isnan(number) ? "nan" : numbers::shortest(number); }

/// The bytes of a string or memory block; nothing for other values.
template <typename Value>
std::optional<standin::Text> bytesOf(const Value& value) {
  if (const auto* text = std::get_if<standin::Text>(&value)) return *text;
  if (const auto* block = std::get_if<standin::Block>(&value)) {
    return standin::Text{block->bytes, kEncodingNone, block->nil};
  }
  return std::nullopt;
}

/// What has no bytes, as it is printed.
template <typename Value>
std::string scalar(const Value& value) {
  return std::visit(
      [](const auto& plain) -> std::string {
        using Plain = std::decay_t<decltype(plain)>;
        if constexpr (std::is_same_v<Plain, bool>) {
          return plain ? "true" : "false";
        } else if constexpr (std::is_same_v<Plain, double>) {
          return digits(plain);
        } else if constexpr (std::is_integral_v<Plain>) {
          return std::to_string(plain);
        } else {
          return {};
        }
      },
      value);
}

template <typename Value>
ordered_json valueOf(const Value& value) {
  if (const auto bytes = bytesOf(value)) {
    const auto utf8 = readable(*bytes);
    return utf8 ? ordered_json(*utf8) : ordered_json();
  }
  if (const auto* number = std::get_if<double>(&value)) {
    return std::isfinite(*number) ? ordered_json(*number) : ordered_json(digits(*number));
  }
  return ordered_json::parse(scalar(value));
}

template <typename Value>
standin::Type typeOf(const Value& value) {
  if (std::holds_alternative<standin::Text>(value)) return standin::Type::kString;
  if (std::holds_alternative<standin::Block>(value)) return standin::Type::kMemoryBlock;
  if (std::holds_alternative<double>(value)) return standin::Type::kDouble;
  return std::holds_alternative<bool>(value) ? standin::Type::kBoolean : standin::Type::kInteger;
}

ordered_json encodingOf(TextEncoding encoding) {
  if (const char* name = nameOf(encoding)) return name;
  return encoding;
}

template <typename Value>
ordered_json fieldsOf(const Value& value, standin::Type type) {
  ordered_json json = {{"type", standin::nameOf(type)}, {"value", valueOf(value)}};
  if (const auto bytes = bytesOf(value)) {
    json["hex"] = hexDigits(bytes->bytes);
    if (type == standin::Type::kString) json["encoding"] = bytes->null ? ordered_json() : encodingOf(bytes->encoding);
    json["null"] = bytes->null;
  }
  return json;
}

template <typename Value>
std::string inWords(const Value& value) {
  constexpr std::size_t kMostShown = 64;
  const standin::Type type = typeOf(value);
  const std::string name = standin::nameOf(type);
  const auto bytes = bytesOf(value);
  if (!bytes) return name + " " + scalar(value);
  if (bytes->null) return type == standin::Type::kString ? "null string" : "nil block";
  const std::size_t size = bytes->bytes.size();
  std::string words = name + " of " + std::to_string(size) + (size == 1 ? " byte" : " bytes");
  if (type == standin::Type::kString) words += ", " + encodingName(bytes->encoding);
  if (size == 0) return words;
  if (size > kMostShown) return words + ", hex:" + hexDigits(bytes->bytes.substr(0, kMostShown / 2)) + "...";
  const std::string text = shown(*bytes);
  const bool isLine = text.find_first_of("\t\r\n") == std::string::npos && !text.starts_with("hex:");
  return words + ", " + (isLine ? "\"" + text + "\"" : "hex:" + hexDigits(bytes->bytes));
}

}  // namespace

std::string hexDigits(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string out(bytes.size() * 2, '0');
  char* at = out.data();
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    *at++ = kDigits[byte >> 4];
    *at++ = kDigits[byte & 0x0F];
  }
  return out;
}

std::string encodingName(TextEncoding encoding) {
  const char* const name = nameOf(encoding);
  return name != nullptr ? name : std::to_string(encoding);
}

std::string described(const standin::Argument& value) { return inWords(value); }

std::string described(const standin::Result& value) { return inWords(value); }

bool isThing(const standin::Result& value) {
  const auto bytes = bytesOf(value);
  return bytes && !bytes->null;
}

ordered_json jsonOf(const standin::Argument& argument) { return fieldsOf(argument, typeOf(argument)); }

ordered_json jsonOf(const standin::Outcome& outcome, standin::Type type) {
  ordered_json json = fieldsOf(outcome.result, type);
  if (json.contains("hex")) {
    json["same_argument"] = outcome.sameAsArgument < 0 ? ordered_json() : ordered_json(outcome.sameAsArgument + 1);
  }
  json["exception"] = nullptr;
  if (const auto& raised = outcome.exception) {
    json["exception"] = {{"class", raised->className}, {"message", raised->message}, {"number", raised->errorNumber}};
  }
  return json;
}

ordered_json jsonOf(const Timing& timing) {
  const auto whole = [](double nanoseconds) { return std::llround(nanoseconds); };
  return {{"calls", timing.count()},
          {"mean_ns", whole(timing.mean())},
          {"deviation_ns", whole(timing.deviation())},
          {"least_ns", whole(timing.least())},
          {"most_ns", whole(timing.most())}};
}

std::string dumped(const ordered_json& json, bool terminal) {
  std::string line = json.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
  return terminal ? visible(line) : line;
}

void print(std::ostream& out, const standin::Outcome& outcome, Form form, bool terminal) {
  const bool isShown = terminal && form == Form::kText;
  std::string result;
  if (const auto bytes = bytesOf(outcome.result)) {
    if (bytes->bytes.empty()) return;
    result = form == Form::kHex ? hexDigits(bytes->bytes) : isShown ? shown(*bytes) : bytes->bytes;
  } else {
    result = scalar(outcome.result);
  }
  out << result;
  if (terminal && form != Form::kRaw) out << '\n';
}

}  // namespace stringhost
