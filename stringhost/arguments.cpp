#include "stringhost/arguments.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <istream>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "standin/transcode.h"
#include "stringhost/nearest.h"
#include "stringhost/numbers.h"
#include "stringhost/usage_error.h"

namespace stringhost {
namespace {

using standin::Argument;
using standin::Type;

/// Bytes an argument stands for, and whether they are text as opposed to given bytes.
struct Content {
  std::string bytes;
  bool isText;
};

/// What a string or a memory block of the host holds at most.
constexpr std::uintmax_t kMostBytes = std::numeric_limits<std::int32_t>::max();

[[noreturn]] void refuseLength(const std::string& name) {
  throw UsageError(name + ": more than " + std::to_string(kMostBytes) + " bytes, which is all a string can hold");
}

/// With the reason, where the system gave one.
[[noreturn]] void refuseReading(const std::string& name) {
  throw UsageError(name + ": cannot be read" + (errno != 0 ? ": " + std::generic_category().message(errno) : ""));
}

/// Reads to the end, or refuses what is longer than a string can be as soon as that is seen.
/// @param expected  how many bytes there probably are, so that they are moved about less
std::string readAll(std::istream& in, const std::string& name, std::size_t expected = 0) {
  constexpr std::size_t kBlock = std::size_t{1} << 20;
  errno = 0;
  const auto block = std::make_unique<char[]>(kBlock);
  std::string bytes;
  bytes.reserve(expected);
  while (in.read(block.get(), kBlock), in.gcount() > 0) {
    const auto count = static_cast<std::size_t>(in.gcount());
    if (count > kMostBytes - bytes.size()) refuseLength(name);
    bytes.append(block.get(), count);
  }
  if (in.bad()) refuseReading(name);
  return bytes;
}

std::string readFile(const std::string& name) {
  if (name.empty()) throw UsageError("@: the name of the file is empty");
  const std::filesystem::path path(std::u8string(name.begin(), name.end()));
  std::error_code failure;
  if (std::filesystem::is_directory(path, failure)) throw UsageError(name + ": is a directory");
  const bool isSized = std::filesystem::is_regular_file(path, failure);
  const std::uintmax_t size = isSized ? std::filesystem::file_size(path, failure) : 0;
  if (isSized && !failure && size > kMostBytes) refuseLength(name);
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file.is_open()) refuseReading(name);
  return readAll(file, name, failure ? 0 : static_cast<std::size_t>(size));
}

int digitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const int letter = std::tolower(static_cast<unsigned char>(c));
  return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

std::string parseHex(const std::string& written, std::string_view digits) {
  std::string bytes;
  int high = -1;
  for (const char c : digits) {
    const int value = digitValue(c);
    if (value < 0) throw UsageError(written + ": '" + c + "' is no hex digit");
    if (high < 0) {
      high = value;
    } else {
      bytes += static_cast<char>(high * 16 + value);
      high = -1;
    }
  }
  if (high >= 0) throw UsageError(written + ": two hex digits make a byte, one is missing");
  return bytes;
}

/// Nothing for an empty argument.
std::optional<Content> parseContent(const std::string& written, const Source& source) {
  if (written.empty()) return std::nullopt;
  if (written == "-") return Content{readAll(source.in, "standard input"), false};
  if (written[0] == '@') return Content{readFile(written.substr(1)), false};
  if (written.starts_with("hex:")) return Content{parseHex(written, std::string_view(written).substr(4)), false};
  if (written.starts_with("text:")) return Content{written.substr(5), true};
  return Content{written, true};
}

standin::Text parseString(const std::string& written, const Source& source) {
  auto content = parseContent(written, source);
  if (!content) return standin::nullText();
  if (!content->isText) return {std::move(content->bytes), source.encoding, false};
  return standin::marked(*standin::transcode(content->bytes, kEncodingUTF8, source.encoding), source.encoding);
}

standin::Block parseBlock(const std::string& written, const Source& source) {
  if (written == "nil") return standin::nilBlock();
  auto content = parseContent(written, source);
  return content ? standin::Block{std::move(content->bytes), false} : standin::nilBlock();
}

[[noreturn]] void refuseValue(const std::string& written, const standin::Parameter& parameter, const char* what) {
  throw UsageError("'" + written + "' is not " + what + ", as " + parameter.name + " has to be");
}

template <typename Number>
Number parseNumber(const std::string& written, const standin::Parameter& parameter, const char* what) {
  Number number{};
  const char* const last = written.data() + written.size();
  const auto [end, error] = numbers::read(written.data(), last, number);
  if (end != last || error == std::errc::invalid_argument) refuseValue(written, parameter, what);
  if (error == std::errc::result_out_of_range) {
    throw UsageError("'" + written + "' is out of range for " + parameter.name + ", " + what);
  }
  return number;
}

bool parseBoolean(const std::string& written, const standin::Parameter& parameter) {
  if (isSameName(written, "true") || written == "1") return true;
  if (isSameName(written, "false") || written == "0") return false;
  refuseValue(written, parameter, "true or false");
}

Argument parseArgument(const standin::Parameter& parameter, const std::string& written, const Source& source) {
  switch (parameter.type) {
    case Type::kString:
      return parseString(written, source);
    case Type::kMemoryBlock:
      return parseBlock(written, source);
    case Type::kInteger:
      return parseNumber<std::int32_t>(written, parameter, "an integer of 32 bits");
    case Type::kDouble:
      return parseNumber<double>(written, parameter, "a double");
    case Type::kBoolean:
      break;
  }
  return parseBoolean(written, parameter);
}

}  // namespace

const char* const kArgumentHelp = R"(An argument for a string or a memory block is
  TEXT        text, in UTF-8
  text:TEXT   text, whatever it begins with
  hex:C3A9    bytes; hex: alone is a string of no bytes
  @FILE       the bytes of a file
  -           the bytes of standard input
  ''          the null string, or the nil block; "" in the command prompt of Windows
  nil         the nil block, where a memory block is expected
Text is converted to the encoding of --encoding, where what it has no character for
becomes "?"; bytes are only marked with it.
For an integer, a double or a boolean it is a number, or true or false. Arguments
left out at the end take the defaults the method declares. After -- everything is
an argument; what begins with "-" and neither a letter nor "-" always is.)";

std::vector<Argument> parseArguments(const standin::Declaration& declaration, const std::vector<std::string>& written,
                                     const Source& source) {
  if (std::count(written.begin(), written.end(), "-") > 1) {
    throw UsageError("standard input can be read once; only one argument can be -");
  }
  std::vector<Argument> arguments;
  for (std::size_t index = 0; index < written.size(); ++index) {
    try {
      arguments.push_back(parseArgument(declaration.parameters[index], written[index], source));
    } catch (const UsageError& error) {
      throw UsageError(error.what(), error.hint(), static_cast<int>(index) + 1);
    }
  }
  return arguments;
}

}  // namespace stringhost
