/// What is said about a command line that makes no sense.
#pragma once

#include <stdexcept>
#include <string>

namespace stringhost {

/// One line, and a hint that may be empty.
class UsageError : public std::runtime_error {
 public:
  explicit UsageError(const std::string& line, std::string hint = {}, int argument = 0)
      : std::runtime_error(line), hint_(std::move(hint)), argument_(argument) {}

  [[nodiscard]] const std::string& hint() const noexcept { return hint_; }

  /// The number of the method's argument that is wrong; 0 where it is something else.
  [[nodiscard]] int argument() const noexcept { return argument_; }

 private:
  std::string hint_;
  int argument_;
};

}  // namespace stringhost
