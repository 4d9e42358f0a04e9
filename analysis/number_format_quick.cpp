/// Numbers of the usual sizes, in integer arithmetic.
#include <bit>
#include <cstring>

#include "analysis/number_format.h"
#include "memory/wrapping.h"

namespace {

using number_format::kMaxDigits;
using number_format::Text;

constexpr int kMantissaBits = 52;
constexpr int kExponentBias = 1023;
constexpr std::uint64_t kTenTo8 = 100'000'000;
constexpr std::uint64_t kTenTo16 = kTenTo8 * kTenTo8;
constexpr int kChunkDigits = 16;

constexpr std::uint64_t kZeroCharacters = 0x3030'3030'3030'3030;

/// Set in the last of 8 digits.
constexpr std::uint64_t kLastDigit = std::uint64_t{1} << 56;

/// The product of two 64-bit numbers.
struct Product {
  std::uint64_t high;
  std::uint64_t low;
};

#ifdef __SIZEOF_INT128__
Product multiply(std::uint64_t a, std::uint64_t b) noexcept {
  __extension__ using Wide = unsigned __int128;
  const Wide product = static_cast<Wide>(a) * b;
  return {static_cast<std::uint64_t>(product >> 64), static_cast<std::uint64_t>(product)};
}
#else
Product multiply(std::uint64_t a, std::uint64_t b) noexcept {
  constexpr std::uint64_t kLow = 0xFFFF'FFFF;
  const std::uint64_t low = (a & kLow) * (b & kLow);
  const std::uint64_t cross = (a >> 32) * (b & kLow) + (low >> 32);  // cannot overflow: (2^32 - 1) * 2^32
  const std::uint64_t middle = (a & kLow) * (b >> 32) + (cross & kLow);
  return {(a >> 32) * (b >> 32) + (cross >> 32) + (middle >> 32), middle << 32 | (low & kLow)};
}
#endif

/// A number below 1: `numerator` / 2^`shift`, with a shift of at most 80.
struct Fraction {
  std::uint64_t numerator;
  int shift;

  /// Takes the next 16 decimals off. The product of a numerator below 2^64 and 10^16 has 16 zero bits at its end:
  /// with them dropped, what remains below 2^`shift` fits 64 bits again.
  std::uint64_t nextDecimals() noexcept {
    if (numerator == 0) return 0;
    const auto [high, low] = multiply(numerator, kTenTo16);
    std::uint64_t decimals = 0;
    if (shift < 64) {
      decimals = high << (64 - shift) | low >> shift;
      numerator = (low & ((std::uint64_t{1} << shift) - 1)) >> kChunkDigits;
    } else {
      decimals = high >> (shift - 64);
      const std::uint64_t rest = high & ((std::uint64_t{1} << (shift - 64)) - 1);
      numerator = rest << (64 - kChunkDigits) | low >> kChunkDigits;
    }
    shift -= kChunkDigits;
    return decimals;
  }
};

/// The 8 digits of a number below 10^8, a byte each, the first one lowest: halves, quarters, then single digits.
std::uint64_t digitsOf8(std::uint64_t value) noexcept {
  const std::uint64_t fours = value / 10'000 | value % 10'000 << 32;
  const std::uint64_t hundreds = fours * 10'486 >> 20 & 0x0000'007F'0000'007F;
  const std::uint64_t pairs = hundreds | (fours - 100 * hundreds) << 16;
  const std::uint64_t tens = pairs * 103 >> 10 & 0x000F'000F'000F'000F;
  return tens | (pairs - 10 * tens) << 8;
}

/// 16 digits, 8 to a word, in the order of `digitsOf8`.
struct Digits16 {
  std::uint64_t first;
  std::uint64_t last;

  explicit Digits16(std::uint64_t value) noexcept
      : first(digitsOf8(value / kTenTo8)), last(digitsOf8(value % kTenTo8)) {}

  void write(char* out) const noexcept {
    const std::uint64_t characters[] = {first | kZeroCharacters, last | kZeroCharacters};
    std::memcpy(out, characters, sizeof characters);
  }

  /// The number of zeros before the first other digit; 16 when there is none.
  [[nodiscard]] int leadingZeros() const noexcept {
    return (first != 0 ? std::countr_zero(first) : 64 + std::countr_zero(last)) / 8;
  }
};

/// The number of digits in a word that are not 0.
WRAPPING_FUNCTION int countNonZero(std::uint64_t digits) noexcept {
  const std::uint64_t marks = (digits + 0x7F7F'7F7F'7F7F'7F7F) >> 7 & 0x0101'0101'0101'0101;
  return static_cast<int>(marks * 0x0101'0101'0101'0101 >> 56);
}

/// A writer's position, and how many characters before it are not "0".
struct Cursor {
  char* out;
  int significant;

  /// Writes the digits without leading zeros, at least one of them.
  void writeWithoutZeros(std::uint64_t digits) noexcept {
    const int zeros = std::countr_zero(digits | kLastDigit) / 8;
    const std::uint64_t characters = (digits | kZeroCharacters) >> 8 * zeros;
    std::memcpy(out, &characters, sizeof characters);
    out += 8 - zeros;
    significant += countNonZero(digits);
  }

  void writeAll(std::uint64_t digits) noexcept {
    const std::uint64_t characters = digits | kZeroCharacters;
    std::memcpy(out, &characters, sizeof characters);
    out += 8;
    significant += countNonZero(digits);
  }

  void writeWhole(std::uint64_t value) noexcept {
    if (value < kTenTo8) return writeWithoutZeros(digitsOf8(value));
    if (value < kTenTo16) {
      writeWithoutZeros(digitsOf8(value / kTenTo8));
    } else {
      writeWithoutZeros(digitsOf8(value / kTenTo16));
      writeAll(digitsOf8(value / kTenTo8 % kTenTo8));
    }
    writeAll(digitsOf8(value % kTenTo8));
  }
};

/// Drops the zeros that follow a trailing zero. Something else than a zero comes before them.
char* withoutZeros(char* end) noexcept {
  while (end[-1] == '0' && end[-2] == '0') --end;
  return end;
}

/// A double without its sign.
struct Parts {
  std::uint64_t whole;
  Fraction fraction;
};

Parts split(std::uint64_t bits) noexcept {
  const std::uint64_t field = bits & ((std::uint64_t{1} << kMantissaBits) - 1);
  const int exponent = static_cast<int>(bits >> kMantissaBits & 0x7FF) - kExponentBias;
  if (exponent == -kExponentBias) return {0, {0, 0}};  // a zero, as no subnormal is covered
  const std::uint64_t mantissa = field | std::uint64_t{1} << kMantissaBits;
  const int shift = kMantissaBits - exponent;
  if (shift <= 0) return {mantissa << -shift, {0, 0}};
  if (shift >= 64) return {0, {mantissa, shift}};
  return {mantissa >> shift, {mantissa & ((std::uint64_t{1} << shift) - 1), shift}};
}

/// Writes the point and the decimals that count.
/// 32 decimals hold them: a fraction beside a whole part is 2^-52 or more, so its digits begin within 16 decimals and
/// are 14 at most; one without is 2^-28 or more, and its 15 digits begin within 9.
char* writeDecimals(Cursor cursor, Fraction fraction) noexcept {
  char* const decimals = cursor.out + 1;
  cursor.out[0] = '.';
  decimals[0] = '0';
  if (fraction.numerator == 0) return decimals + 1;
  const Digits16 first(fraction.nextDecimals());
  first.write(decimals);
  const int kept = first.leadingZeros() + kMaxDigits - cursor.significant;
  if (kept > kChunkDigits) Digits16(fraction.nextDecimals()).write(decimals + kChunkDigits);
  return withoutZeros(decimals + kept);
}

}  // namespace

std::size_t number_format::quick::writeFixed(double value, Text& text) noexcept {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  Cursor cursor{text.data(), 0};
  if (bits >> 63 != 0) {
    *cursor.out++ = '-';
    ++cursor.significant;
  }
  const auto [whole, fraction] = split(bits);
  cursor.writeWhole(whole);
  char* const end = cursor.significant >= kMaxDigits ? withoutZeros(cursor.out) : writeDecimals(cursor, fraction);
  return static_cast<std::size_t>(end - text.data());
}
