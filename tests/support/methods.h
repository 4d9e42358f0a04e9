/// Tests of methods: calls through the stand-in host, with every reference accounted for.
#pragma once

#include <cstdint>
#include <doctest/doctest.h>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "standin/session.h"

namespace standin {

/// Text in a failed check: printable ASCII as it is, every other byte as \xHH, then the encoding.
inline std::ostream& operator<<(std::ostream& out, const Text& text) {
  if (text.null) return out << "null";
  out << '"' << std::hex << std::uppercase << std::setfill('0');
  for (const char c : text.bytes) {
    if (c >= 0x20 && c < 0x7F && c != '\\') {
      out << c;
    } else {
      out << "\\x" << std::setw(2) << (static_cast<unsigned>(c) & 0xFFU);
    }
  }
  return out << "\" in encoding 0x" << text.encoding << std::dec;
}

inline std::ostream& operator<<(std::ostream& out, const Block& value) {
  if (value.nil) return out << "nil";
  return out << marked(value.bytes, kEncodingNone);
}

inline std::ostream& operator<<(std::ostream& out, const Raised& raised) {
  return out << raised.className << ": \"" << raised.message << "\" (" << raised.errorNumber << ')';
}

}  // namespace standin

namespace testing {

using namespace standin;  // NOLINT: the tests' own vocabulary
using namespace std::string_literals;
using namespace std::string_view_literals;

/// All the plugin's violations, a line each.
inline std::string violationsOf(const Outcome& outcome) {
  std::string lines;
  for (const std::string& violation : outcome.violations) lines += violation + "\n";
  return lines;
}

/// Calls a method and checks that it kept its accounts.
inline Outcome call(Session& session, std::string_view method, const std::vector<Argument>& arguments) {
  Outcome outcome = session.call(method, arguments);
  INFO("method: " << method);
  CHECK(violationsOf(outcome) == "");
  return outcome;
}

/// The same in a host of its own.
inline Outcome call(const Options& options, std::string_view method, const std::vector<Argument>& arguments) {
  Session session(options);
  return call(session, method, arguments);
}

/// Checks that nothing was raised and the result is this string.
inline void checkText(const Outcome& outcome, std::string_view bytes, TextEncoding encoding) {
  CHECK_FALSE(outcome.exception.has_value());
  CHECK(outcome.text() == marked(bytes, encoding));
}

/// Checks that nothing was raised and the result is the null string.
inline void checkNull(const Outcome& outcome) {
  CHECK_FALSE(outcome.exception.has_value());
  CHECK(outcome.text() == nullText());
}

/// Checks that this exception was raised, and the result is the null string.
inline void checkRaised(const Outcome& outcome, std::string_view className, std::string_view message) {
  REQUIRE(outcome.exception.has_value());
  CHECK(*outcome.exception == Raised{std::string(className), std::string(message), 0});
}

/// One host of each kind the plugin tells apart, from below the oldest threshold to above the newest.
inline constexpr double kVersions[] = {2011.4, 2012.0, 2013.0, 2013.03, 2013.04, 2015.03, 2016.0, 2023.1, 3000.0};

}  // namespace testing
