/// The registered methods of this folder. A null string is the empty string, as argument and as result.
/// None of them throws; what odd input and failures give is told in docs/methods/markup.md.
#pragma once

#include <cstdint>

#include "host/records.h"

// Text that can stand in an HTML or XML document; text that can already is returned itself.
REALstringStruct* EncodingToHTML(REALstringStruct* s, std::int32_t options) noexcept;
REALstringStruct* EncodingToXML(REALstringStruct* s, std::int32_t options) noexcept;

// Character references back to characters, for HTML and XML alike.
REALstringStruct* DecodingToHTML(REALstringStruct* s) noexcept;

// Whether the bytes can stand in an HTML or XML document as they are: one test under two names.
HostBoolean StringIsHTMLready(REALstringStruct* s) noexcept;
HostBoolean StringIsXMLready(REALstringStruct* s) noexcept;

// Text without its tags, or with a replacement for each byte in one.
REALstringStruct* RemoveHTMLTags(REALstringStruct* AsciiTextWithTags) noexcept;
REALstringStruct* RemoveHTMLTagsWith(REALstringStruct* AsciiTextWithTags, REALstringStruct* Replacement) noexcept;
