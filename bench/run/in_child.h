/// Measurements that need a process of their own.
#pragma once

#include <optional>
#include <sys/wait.h>
#include <type_traits>
#include <unistd.h>

/// Runs a function in a child of this process and returns what it returned; nothing where the child failed.
template <typename Function>
auto inChild(Function function) -> std::optional<std::invoke_result_t<Function>> {
  using Answer = std::invoke_result_t<Function>;
  static_assert(std::is_trivially_copyable_v<Answer>);
  int ends[2];
  if (pipe(ends) != 0) return std::nullopt;
  const pid_t child = fork();
  if (child == 0) {
    int status = 1;
    try {
      const Answer answer = function();
      status = write(ends[1], &answer, sizeof answer) == sizeof answer ? 0 : 1;
    } catch (...) {
    }
    _exit(status);
  }
  close(ends[1]);
  Answer answer;
  const bool complete = child > 0 && read(ends[0], &answer, sizeof answer) == sizeof answer;
  close(ends[0]);
  if (child > 0) waitpid(child, nullptr, 0);
  return complete ? std::optional(answer) : std::nullopt;
}
