#include "bench/host/lean_string.h"

#include <cstdlib>
#include <cstring>
#include <vector>

#include "bench/host/utf.h"

namespace {

/// A converted form: the bytes and a zero unit after them.
struct Form {
  TextEncoding encoding;
  std::vector<std::uint8_t> bytes;
};

struct Contents {
  std::int32_t references;
  std::int32_t length;
  TextEncoding encoding;
  std::vector<Form>* forms;

  [[nodiscard]] std::uint8_t* bytes() noexcept { return reinterpret_cast<std::uint8_t*>(this + 1); }
};

constexpr std::size_t kTerminator = sizeof(char32_t);

std::size_t bytesInStrings = 0;

Contents* contentsOf(REALstringStruct* string) noexcept { return reinterpret_cast<Contents*>(string); }
Contents* contentsOf(REALmemoryBlockStruct* block) noexcept { return reinterpret_cast<Contents*>(block); }

Contents* allocate(std::size_t size) noexcept {
  auto* const contents = static_cast<Contents*>(std::malloc(sizeof(Contents) + size + kTerminator));
  if (contents == nullptr) return nullptr;
  *contents = {1, static_cast<std::int32_t>(size), kEncodingNone, nullptr};
  return contents;
}

void drop(Contents* contents) noexcept {
  if (--contents->references != 0) return;
  delete contents->forms;
  std::free(contents);
}

template <typename Unit>
std::span<const Unit> unitsOf(ByteView bytes) noexcept {
  return {reinterpret_cast<const Unit*>(bytes.data()), bytes.size() / sizeof(Unit)};
}

template <typename Unit>
std::vector<std::uint8_t> decoded(ByteView utf8) {
  std::vector<std::uint8_t> bytes((utf8.size() + 1) * sizeof(Unit));
  auto* const begin = reinterpret_cast<Unit*>(bytes.data());
  Unit* const end = lean::decode(utf8, begin);
  *end = 0;
  bytes.resize(static_cast<std::size_t>(end - begin + 1) * sizeof(Unit));
  return bytes;
}

/// The text as UTF-8, without a terminator. Only the Unicode encodings and 7-bit text occur here.
std::vector<std::uint8_t> toUtf8(Contents* contents) {
  const ByteView bytes{contents->bytes(), static_cast<std::size_t>(contents->length)};
  std::vector<std::uint8_t> text;
  if (contents->encoding == kEncodingUTF16) {
    text.resize(bytes.size() / sizeof(char16_t) * 3);
    text.resize(static_cast<std::size_t>(lean::encode(unitsOf<char16_t>(bytes), text.data()) - text.data()));
  } else if (contents->encoding == kEncodingUTF32) {
    text.resize(bytes.size());
    text.resize(static_cast<std::size_t>(lean::encode(unitsOf<char32_t>(bytes), text.data()) - text.data()));
  } else {
    text.assign(bytes.begin(), bytes.end());
  }
  return text;
}

std::vector<std::uint8_t> makeForm(Contents* contents, TextEncoding encoding) {
  std::vector<std::uint8_t> utf8 = toUtf8(contents);
  if (encoding == kEncodingUTF16) return decoded<char16_t>(utf8);
  if (encoding == kEncodingUTF32) return decoded<char32_t>(utf8);
  utf8.push_back(0);
  return utf8;
}

std::size_t terminatorOf(TextEncoding encoding) noexcept {
  if (encoding == kEncodingUTF16) return sizeof(char16_t);
  return encoding == kEncodingUTF32 ? sizeof(char32_t) : 1;
}

}  // namespace

REALstringStruct* lean::makeString(ByteView bytes, TextEncoding encoding) noexcept {
  if (bytes.empty()) return nullptr;
  Contents* const contents = allocate(bytes.size());
  if (contents == nullptr) return nullptr;
  bytesInStrings += bytes.size();
  std::memcpy(contents->bytes(), bytes.data(), bytes.size());
  std::memset(contents->bytes() + bytes.size(), 0, kTerminator);
  contents->encoding = encoding;
  return reinterpret_cast<REALstringStruct*>(contents);
}

REALstringStruct* lean::makeString(std::string_view text, TextEncoding encoding) noexcept {
  return makeString(ByteView{reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, encoding);
}

void lean::mark(REALstringStruct* string, TextEncoding encoding) noexcept { contentsOf(string)->encoding = encoding; }
void lean::take(REALstringStruct* string) noexcept { ++contentsOf(string)->references; }
void lean::drop(REALstringStruct* string) noexcept { ::drop(contentsOf(string)); }

ByteView lean::bytesOf(REALstringStruct* string) noexcept {
  if (string == nullptr) return {};
  return {contentsOf(string)->bytes(), static_cast<std::size_t>(contentsOf(string)->length)};
}

TextEncoding lean::encodingOf(REALstringStruct* string) noexcept { return contentsOf(string)->encoding; }

ByteView lean::formOf(REALstringStruct* string, TextEncoding encoding) noexcept {
  Contents* const contents = contentsOf(string);
  if (contents->forms == nullptr) contents->forms = new std::vector<Form>;
  for (const Form& form : *contents->forms) {
    if (form.encoding == encoding) return {form.bytes.data(), form.bytes.size() - terminatorOf(encoding)};
  }
  const Form& form = contents->forms->emplace_back(Form{encoding, makeForm(contents, encoding)});
  return {form.bytes.data(), form.bytes.size() - terminatorOf(encoding)};
}

REALstringStruct* lean::converted(REALstringStruct* string, TextEncoding encoding) noexcept {
  if (string == nullptr) return nullptr;
  Contents* const source = contentsOf(string);
  const ByteView bytes = bytesOf(string);
  const bool isWide = source->encoding == kEncodingUTF16 || source->encoding == kEncodingUTF32;
  if (encoding != kEncodingUTF8 || !isWide) return makeString(formOf(string, encoding), encoding);

  // The one conversion that is timed, when results are built: straight into the new string, which is then cut.
  const std::size_t room = source->encoding == kEncodingUTF16 ? bytes.size() / 2 * 3 : bytes.size();
  Contents* contents = allocate(room);
  if (contents == nullptr) return nullptr;
  std::uint8_t* const end = source->encoding == kEncodingUTF16 ? encode(unitsOf<char16_t>(bytes), contents->bytes())
                                                               : encode(unitsOf<char32_t>(bytes), contents->bytes());
  std::memset(end, 0, kTerminator);
  contents->length = static_cast<std::int32_t>(end - contents->bytes());
  contents->encoding = encoding;
  return reinterpret_cast<REALstringStruct*>(contents);
}

std::size_t lean::bytesMade() noexcept { return bytesInStrings; }

REALmemoryBlockStruct* lean::makeBlock(std::int64_t size) noexcept {
  return reinterpret_cast<REALmemoryBlockStruct*>(allocate(static_cast<std::size_t>(size)));
}

std::uint8_t* lean::dataOf(REALmemoryBlockStruct* block) noexcept { return contentsOf(block)->bytes(); }
std::int32_t lean::sizeOf(REALmemoryBlockStruct* block) noexcept { return contentsOf(block)->length; }
void lean::take(REALmemoryBlockStruct* block) noexcept { ++contentsOf(block)->references; }
void lean::drop(REALmemoryBlockStruct* block) noexcept { ::drop(contentsOf(block)); }
