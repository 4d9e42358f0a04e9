/// The forms of a text that methods work on, made the plain way: by the host's own conversions, then put into the
/// processor's byte order.
#pragma once

#include <string>

#include "standin/host.h"

namespace fuzz {

[[nodiscard]] std::string asciiForm(const standin::Host& host, const standin::Text& text);
[[nodiscard]] std::string utf8Form(const standin::Host& host, const standin::Text& text);
[[nodiscard]] std::u16string utf16Form(const standin::Host& host, const standin::Text& text);
[[nodiscard]] std::u32string utf32Form(const standin::Host& host, const standin::Text& text);

/// The string a method builds of its output.
[[nodiscard]] standin::Text built(std::string_view bytes, TextEncoding encoding);
[[nodiscard]] standin::Text built(std::u16string_view units);
[[nodiscard]] standin::Text built(const standin::Host& host, std::u32string_view codePoints);

}  // namespace fuzz
