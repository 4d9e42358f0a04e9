/// A call of every method that makes it do all it can: long arguments, many kinds of characters, output that grows.
#pragma once

#include <string>
#include <vector>

#include "standin/session.h"

namespace failures {

/// Text with something in it for every codec, and more different characters than any table on the stack holds.
inline std::string richText(int repetitions) {
  std::string text = "<b>plain</b> words, all in one run\r\n";
  for (int i = 0; i < repetitions; ++i) {
    const int codePoint = 0x4E00 + i % 3000;
    text += "é&amp;=%41\\n 'true' ";
    text += static_cast<char>(0xE0 | codePoint >> 12);
    text += static_cast<char>(0x80 | (codePoint >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (codePoint & 0x3F));
  }
  return text;
}

/// @param length  how long the texts are, in pieces of some 25 bytes
inline std::vector<standin::Argument> argumentsFor(const standin::Method& method, int length = 400) {
  const std::string& name = method.declaration.name;
  std::vector<standin::Argument> arguments;
  int texts = 0;
  for (const standin::Parameter& parameter : method.declaration.parameters) {
    switch (parameter.type) {
      case standin::Type::kString: {
        const bool isFirst = texts++ == 0;
        const bool isShort = !isFirst && (name == "HexstringZQV" || name == "RemoveHTMLTagsWithZQV");
        // The second text has no end in common with the first, which distances would leave out.
        arguments.emplace_back(standin::utf8(isFirst   ? richText(length)
                                             : isShort ? "++"
                                                       : ">" + richText(length * 3 / 4)));
        break;
      }
      case standin::Type::kMemoryBlock:
        arguments.emplace_back(standin::block(richText(length)));
        break;
      case standin::Type::kInteger:
        arguments.emplace_back(name == "RandomBytesStringZQV" ? 5000 : 2);
        break;
      case standin::Type::kDouble:
        arguments.emplace_back(1e300 / 3);
        break;
      case standin::Type::kBoolean:
        arguments.emplace_back(false);
        break;
    }
  }
  return arguments;
}

}  // namespace failures
