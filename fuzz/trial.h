/// One call of a method, chosen by arbitrary bytes: overload, host, arguments.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "standin/session.h"

namespace fuzz {

struct Trial {
  standin::Session* session;
  const char* plugin;  ///< the file in the session: not every one asks the CPU for all it has
  const standin::Method* method;
  std::vector<standin::Argument> arguments;

  [[nodiscard]] const standin::Host& host() const noexcept { return session->host(); }
};

/// Reads a trial of one of the methods of this name; every sequence of bytes is one. The hosts it runs in are made
/// once and stay. Numbers that would only cost memory are replaced by smaller ones.
[[nodiscard]] Trial readTrial(std::string_view method, std::span<const std::uint8_t> bytes);

/// The call and its host, as one would write it down to repeat it.
[[nodiscard]] std::string describe(const Trial& trial);

/// Makes the call and says what is wrong with it: a reference that doesn't balance, an exception that nothing calls
/// for, a result that isn't what the plain twin of the method gives. Empty where all is well.
[[nodiscard]] std::string complaintAbout(const Trial& trial);

}  // namespace fuzz
