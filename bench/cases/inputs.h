/// How the table of cases makes inputs of the corpora.
#pragma once

#include "bench/cases/case.h"
#include "bench/corpus/texts.h"

namespace inputs {

/// One text, and the integers that follow it.
inline MakeInput text(corpus::Generator generator, std::vector<std::int32_t> integers = {},
                      TextEncoding encoding = kEncodingUTF8) {
  return [=](std::size_t size, Random& random) { return Input{{{generator(size, random), encoding}}, integers, {}}; };
}

/// A text and a second argument that is the same at every size.
inline MakeInput textWith(corpus::Generator generator, std::string second, std::vector<std::int32_t> integers = {}) {
  return [=](std::size_t size, Random& random) {
    return Input{{{generator(size, random), kEncodingUTF8}, {second, kEncodingUTF8}}, integers, {}};
  };
}

/// Several texts that share the size among them.
inline MakeInput parts(corpus::Generator generator, std::size_t count) {
  return [=](std::size_t size, Random& random) {
    Input input;
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t share = size * (i + 1) / count - size * i / count;
      input.texts.push_back({generator(share, random), kEncodingUTF8});
    }
    return input;
  };
}

/// Numbers of a kind; the size plays no part.
inline MakeInput number(double (*generator)(Random&), std::vector<std::int32_t> integers = {}) {
  return [=](std::size_t, Random& random) { return Input{{}, integers, {generator(random)}}; };
}

}  // namespace inputs
