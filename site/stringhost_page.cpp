/// The command line of the stand-in host, as functions a page can call.
#include <cstdint>
#include <cstring>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "stringhost/shell_words.h"
#include "stringhost/stringhost.h"

namespace {

/// What the page reads: 32-bit words, in this order.
struct Reply {
  std::int32_t status;
  std::int32_t wrongArgument;  ///< 0 where it isn't an argument of the method that is wrong
  const char* out;
  std::uint32_t outSize;
  const char* err;
  std::uint32_t errSize;
};

/// Keeps what a reply points to until the next call.
Reply* reply(int status, int wrongArgument, std::string printed, std::string complained) {
  static std::string out;
  static std::string err;
  static Reply reply;
  out = std::move(printed);
  err = std::move(complained);
  reply = {status,     wrongArgument,
           out.data(), static_cast<std::uint32_t>(out.size()),
           err.data(), static_cast<std::uint32_t>(err.size())};
  return &reply;
}

/// Runs what follows the program's name.
Reply* run(std::vector<std::string> words, bool terminal) {
  words.insert(words.begin(), {"--plugin", "StringPlugin"});
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  int wrongArgument = 0;
  const int status = stringhost::run(words, in, out, err, terminal, false, &wrongArgument);
  return reply(status, wrongArgument, out.str(), err.str());
}

}  // namespace

extern "C" {

/// Runs words that follow one another, the length of each before it in four bytes.
Reply* run_words(const char* packed, std::uint32_t size) {
  std::vector<std::string> words;
  const std::string_view all(packed, size);
  for (std::size_t at = 0; at < size;) {
    std::uint32_t length = 0;
    std::memcpy(&length, packed + at, sizeof length);
    words.emplace_back(all.substr(at + sizeof length, length));
    at += sizeof length + length;
  }
  return run(std::move(words), false);
}

/// Runs a line as it would be typed into a shell.
Reply* run_line(const char* line, std::uint32_t size) {
  auto words = stringhost::shellWords({line, size});
  if (!words) return reply(stringhost::kUsage, 0, {}, "a quotation is not closed\n");
  if (words->empty() || words->front() != "stringhost") {
    return reply(stringhost::kUsage, 0, {}, "not a command line of stringhost\n");
  }
  words->erase(words->begin());
  return run(std::move(*words), true);
}
}
