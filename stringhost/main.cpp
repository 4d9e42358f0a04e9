/// The program: hands the process's arguments and streams to the command line.
#include <iostream>
#include <string>
#include <vector>

#include "stringhost/stringhost.h"

#ifdef _WIN32

#include <fcntl.h>
#include <io.h>
#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>

namespace {

bool isTerminal() { return _isatty(_fileno(stdout)) != 0; }
bool isWatched() { return _isatty(_fileno(stderr)) != 0; }

void openStreams() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
}

/// The system hands out UTF-16.
std::vector<std::string> argumentsOf(int /*count*/, char** /*words*/) {
  int count = 0;
  LPWSTR* const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int index = 1; index < count; ++index) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide[index], -1, nullptr, 0, nullptr, nullptr);
    std::string argument(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide[index], -1, argument.data(), size, nullptr, nullptr);
    argument.pop_back();
    arguments.push_back(std::move(argument));
  }
  LocalFree(wide);
  return arguments;
}

}  // namespace

#else

#include <unistd.h>

namespace {

bool isTerminal() { return isatty(STDOUT_FILENO) != 0; }
bool isWatched() { return isatty(STDERR_FILENO) != 0; }

void openStreams() { std::ios::sync_with_stdio(false); }

std::vector<std::string> argumentsOf(int count, char** words) { return {words + 1, words + count}; }

}  // namespace

#endif

int main(int count, char** words) {
  openStreams();
  return stringhost::run(argumentsOf(count, words), std::cin, std::cout, std::cerr, isTerminal(), isWatched());
}
