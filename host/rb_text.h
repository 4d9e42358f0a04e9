/// Host strings as text.
#pragma once

#include "host/rb_data.h"
#include "memory/heap_units.h"

/// One text in one encoding, as code units. Views of it are valid as long as the `rbText` that made it.
template <typename Unit>
struct TextForm {
  static constexpr Unit kEmptyBuffer[1] = {};

  std::int32_t length = 0;          ///< in units; -1 until the form is made
  bool had = true;                  ///< false when the host refused the conversion or a copy could not be allocated
  bool recordFilled = false;        ///< `record` has to be given back
  const Unit* data = kEmptyBuffer;  ///< never null
  StringReference converted;        ///< what owns the data on older hosts
  StringDataRecord record = {};     ///< what owns the data on newer ones
  HeapUnits<Unit> copy;             ///< what owns the data when the host's could not be used in place
};

/// Opens a host string as text and converts it, on demand and by the host, to ASCII, UTF-8, UTF-16 or UTF-32 in the
/// processor's byte order, without byte-order mark. A string without an encoding is read as ASCII, or as Mac Roman
/// when it has a byte of 0x80 or above.
///
/// Conversions raise nothing: a form that can't be had is empty. Forms are made once and valid until destruction.
class rbText {
 public:
  /// A null handle has empty forms and asks the host nothing.
  explicit rbText(REALstringStruct* source) noexcept;
  ~rbText();
  rbText(const rbText&) = delete;
  rbText& operator=(const rbText&) = delete;

  [[nodiscard]] ByteView ascii() noexcept;
  [[nodiscard]] ByteView utf8() noexcept;
  [[nodiscard]] Utf16View utf16() noexcept;
  [[nodiscard]] Utf32View utf32() noexcept;

  /// False when the UTF-8 form, once asked for, could not be had; an empty text has one.
  [[nodiscard]] bool hadUtf8() const noexcept { return utf8_.had; }

 private:
  void ConvertASCII() noexcept;
  void ConvertUTF8() noexcept;
  void ConvertUTF16() noexcept;
  void ConvertUTF32() noexcept;

  void openWithoutEncoding(REALstringStruct* source) noexcept;
  void markPlainSource() noexcept;
  void decodeUtf16Form() noexcept;

  template <typename Unit>
  void fetch(TextForm<Unit>& form, TextEncoding encoding, double stringDataVersion) noexcept;
  template <typename Unit>
  void take(TextForm<Unit>& form, StringContents contents) noexcept;

  StringReference source_;
  bool plainASCII_ = false;  ///< the source has no encoding and 7-bit bytes only
  bool failed_ = false;      ///< the host refused a conversion
  TextForm<std::uint8_t> ascii_;
  TextForm<std::uint8_t> utf8_;
  TextForm<char16_t> utf16_;
  TextForm<char32_t> utf32_;
};
