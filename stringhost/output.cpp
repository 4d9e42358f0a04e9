#include "stringhost/output.h"

#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

#include "standin/transcode.h"
#include "stringhost/encoding_names.h"

namespace stringhost {
namespace {

using nlohmann::ordered_json;

/// The text in UTF-8, or nothing for bytes that aren't text.
std::optional<std::string> readable(const standin::Text& text) {
  const bool isMarked = text.encoding != kEncodingNone && text.encoding != kEncodingUTF8;
  auto utf8 = isMarked ? standin::transcode(text.bytes, text.encoding, kEncodingUTF8) : std::optional(text.bytes);
  if (!utf8) return std::nullopt;
  // Malformed text would not come back from another form as it was.
  const std::string wide = *standin::transcode(*utf8, kEncodingUTF8, kEncodingUTF32);
  return *standin::transcode(wide, kEncodingUTF32, kEncodingUTF8) == *utf8 ? utf8 : std::nullopt;
}

/// Whether a terminal shows the text without side effects.
bool isPrintable(std::string_view utf8) {
  for (const char c : utf8) {
    const bool isControl = static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    if (isControl && c != '\t' && c != '\n' && c != '\r') return false;
  }
  return true;
}

std::string shown(const standin::Text& text) {
  const auto utf8 = readable(text);
  return utf8 && isPrintable(*utf8) ? *utf8 : "hex:" + hexDigits(text.bytes);
}

/// The shortest digits that read back as the same number.
std::string digits(double number) {
  if (std::isnan(number)) return "nan";
  char buffer[32];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr};
}

/// The bytes of a string or memory block; nothing for other results.
std::optional<standin::Text> bytesOf(const standin::Outcome& outcome) {
  if (const auto* text = std::get_if<standin::Text>(&outcome.result)) return *text;
  if (const auto* block = std::get_if<standin::Block>(&outcome.result)) {
    return standin::Text{block->bytes, kEncodingNone, block->nil};
  }
  return std::nullopt;
}

std::string scalar(const standin::Outcome& outcome) {
  if (const auto* integer = std::get_if<std::int64_t>(&outcome.result)) return std::to_string(*integer);
  if (const auto* number = std::get_if<double>(&outcome.result)) return digits(*number);
  return outcome.boolean() ? "true" : "false";
}

ordered_json valueOf(const standin::Outcome& outcome) {
  if (const auto* integer = std::get_if<std::int64_t>(&outcome.result)) return *integer;
  if (const auto* boolean = std::get_if<bool>(&outcome.result)) return *boolean;
  if (const auto* number = std::get_if<double>(&outcome.result)) {
    return std::isfinite(*number) ? ordered_json(*number) : ordered_json(digits(*number));
  }
  const auto utf8 = readable(*bytesOf(outcome));
  return utf8 ? ordered_json(*utf8) : ordered_json();
}

ordered_json encodingOf(TextEncoding encoding) {
  if (const char* name = nameOf(encoding)) return name;
  return encoding;
}

void printJson(std::ostream& out, const standin::Outcome& outcome, standin::Type type) {
  ordered_json json;
  json["type"] = standin::nameOf(type);
  json["value"] = valueOf(outcome);
  if (const auto bytes = bytesOf(outcome)) {
    json["hex"] = hexDigits(bytes->bytes);
    if (type == standin::Type::kString) json["encoding"] = bytes->null ? ordered_json() : encodingOf(bytes->encoding);
    json["null"] = bytes->null;
    json["same_argument"] = outcome.sameAsArgument < 0 ? ordered_json() : ordered_json(outcome.sameAsArgument + 1);
  }
  json["exception"] = nullptr;
  if (const auto& raised = outcome.exception) {
    json["exception"] = {{"class", raised->className}, {"message", raised->message}, {"number", raised->errorNumber}};
  }
  out << json.dump(-1, ' ', false, ordered_json::error_handler_t::replace) << '\n';
}

}  // namespace

std::string hexDigits(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string out;
  out.reserve(bytes.size() * 2);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    out += kDigits[byte >> 4];
    out += kDigits[byte & 0x0F];
  }
  return out;
}

void print(std::ostream& out, const standin::Outcome& outcome, standin::Type type, Form form, bool terminal) {
  if (form == Form::kJson) return printJson(out, outcome, type);
  const bool isShown = terminal && form == Form::kText;
  std::string result;
  if (const auto bytes = bytesOf(outcome)) {
    if (bytes->bytes.empty()) return;
    result = form == Form::kHex ? hexDigits(bytes->bytes) : isShown ? shown(*bytes) : bytes->bytes;
  } else {
    result = scalar(outcome);
  }
  out << result;
  if (terminal && form != Form::kRaw) out << '\n';
}

}  // namespace stringhost
