/// Exceptions in a file that carries the C++ runtime inside.

#include <atomic>
#include <doctest/doctest.h>
#include <thread>
#include <vector>

#include "standin/plugin_library.h"

TEST_CASE("a file linked like the plugin throws and catches in every thread, the first time included") {
  const standin::PluginLibrary module(THROWING_MODULE, standin::PluginLibrary::How::kInPlace);
  const auto throwThrough = reinterpret_cast<int (*)(int)>(module.function("REALPluginMain"));

  constexpr int kThreads = 8;
  std::atomic<int> waiting = kThreads;
  std::atomic<int> right = 0;
  std::vector<std::thread> threads;
  for (int thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&] {
      for (--waiting; waiting > 0;) {
      }
      for (int depth = 0; depth < 100; ++depth) right += throwThrough(depth) == depth + 1 ? 1 : 0;
    });
  }
  for (std::thread& thread : threads) thread.join();
  CHECK(right == kThreads * 100);
}
