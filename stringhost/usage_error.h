/// What is said about a command line that makes no sense.
#pragma once

#include <stdexcept>
#include <string>

namespace stringhost {

/// One line, and a hint that may be empty.
class UsageError : public std::runtime_error {
 public:
  explicit UsageError(const std::string& line, std::string hint = {})
      : std::runtime_error(line), hint_(std::move(hint)) {}

  [[nodiscard]] const std::string& hint() const noexcept { return hint_; }

 private:
  std::string hint_;
};

}  // namespace stringhost
