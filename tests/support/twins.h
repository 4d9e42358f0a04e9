/// Holding kernels against examples and against their naive twins.
#pragma once

#include <doctest/doctest.h>
#include <initializer_list>
#include <string>
#include <string_view>

#include "tests/support/random_bytes.h"

/// What comes in and what has to come out.
template <typename Character>
struct ExampleOf {
  const char* name;
  std::basic_string_view<Character> input;
  std::basic_string_view<Character> output;
};
using Example = ExampleOf<char>;
using Utf32Example = ExampleOf<char32_t>;

/// Checks a kernel and its twin: both are called with a text.
template <typename Examples, typename Kernel, typename Twin>
void checkExamples(const Examples& examples, Kernel kernel, Twin twin) {
  for (const auto& example : examples) {
    CAPTURE(example.name);
    CHECK(kernel(example.input) == example.output);
    CHECK(twin(example.input) == example.output);
  }
}

/// Checks that a kernel does what its twin does on random texts of every length up to 200, each of the letters of one
/// of the alphabets. The kernel is called with a text and a number from 0 to 1023 that tells where to place it.
template <typename Kernel, typename Twin>
void checkAgainstTwin(std::initializer_list<std::string_view> alphabets, Kernel kernel, Twin twin) {
  RandomBytes random(200);
  for (std::size_t length = 0; length <= 200; ++length) {
    for (const std::string_view alphabet : alphabets) {
      const std::string text = random.of(alphabet, length);
      CAPTURE(text);
      CHECK(kernel(text, random.below(1024)) == twin(text));
    }
  }
}
