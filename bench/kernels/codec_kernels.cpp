/// Kernels of the transfer encodings and character sets.
#include "bench/kernels/kernel.h"
#include "codecs/character_set.h"
#include "codecs/charsets.h"
#include "codecs/email_subject.h"
#include "codecs/hex.h"
#include "codecs/quoted_printable.h"
#include "codecs/yenc.h"

namespace {

template <auto encode>
std::int64_t encodeHex(const Operands& in) {
  encode(in.first(), in.scratch.first(2 * in.first().size()));
  return 0;
}

template <auto decode>
std::int64_t decodeHex(const Operands& in) {
  decode(in.first(), in.scratch.first(in.first().size() / 2));
  return 0;
}

template <auto decode, const CharacterSet& set>
std::int64_t decodeSet(const Operands& in) {
  decode(in.first(), set, std::span(reinterpret_cast<char16_t*>(in.scratch.data()), in.first().size()));
  return 0;
}

template <auto encode, const CharacterSet& set>
std::int64_t encodeSet(const Operands& in) {
  return static_cast<std::int64_t>(encode(in.utf16, set, in.scratch));
}

template <auto findNotPlain>
std::int64_t testSubject(const Operands& in) {
  return static_cast<std::int64_t>(findNotPlain(in.first()));
}

std::int64_t encodeSubject(const Operands& in) {
  if (email_subject::findNotPlain(in.first()) == in.first().size()) return 0;
  OutputBuffer word;
  return email_subject::encode(in.first(), word) ? word.size() : -1;
}

std::int64_t encodeSubjectPlainly(const Operands& in) {
  if (testSubject<email_subject::scalar::findNotPlain>(in) == std::ssize(in.first())) return 0;
  return email_subject::scalar::encode(in.first(), in.scratch.data()) - in.scratch.data();
}

std::int64_t encodeQuoted(const Operands& in) {
  OutputBuffer text;
  return quoted_printable::encode(in.first(), in.integers[0], text) ? text.size() : -1;
}

template <auto decode>
std::int64_t decodeTo(const Operands& in) {
  return static_cast<std::int64_t>(decode(in.first(), in.scratch.first(in.first().size())));
}

namespace plain = charsets::scalar;

const KernelLines lines{
    {"hex encode", "kernel", encodeHex<hex::encode>},
    {"hex encode", "plain", encodeHex<hex::scalar::encode>},
    {"hex decode", "kernel", decodeHex<hex::decode>},
    {"hex decode", "plain", decodeHex<hex::scalar::decode>},
    {"from ISO-8859-1", "kernel", decodeSet<charsets::decode, kISO8859>},
    {"from ISO-8859-1", "plain", decodeSet<plain::decode, kISO8859>},
    {"from Windows-1252", "kernel", decodeSet<charsets::decode, kCP1252>},
    {"from Windows-1252", "plain", decodeSet<plain::decode, kCP1252>},
    {"to ISO-8859-1", "kernel", encodeSet<charsets::encode, kISO8859>},
    {"to ISO-8859-1", "plain", encodeSet<plain::encode, kISO8859>},
    {"to Windows-1252", "kernel", encodeSet<charsets::encode, kCP1252>},
    {"to Windows-1252", "plain", encodeSet<plain::encode, kCP1252>},
    {"e-mail subject", "kernel", encodeSubject},
    {"e-mail subject", "plain", encodeSubjectPlainly},
    {"quoted-printable encode", "kernel", encodeQuoted},
    {"quoted-printable decode", "kernel", decodeTo<quoted_printable::decode>},
    {"quoted-printable decode", "plain", decodeTo<quoted_printable::scalar::decode>},
    {"yEnc decode", "kernel", decodeTo<yenc::decode>},
    {"yEnc decode", "plain", decodeTo<yenc::scalar::decode>},
    {"yEnc decode, memory block", "kernel", decodeTo<yenc::decode>},
    {"yEnc decode, memory block", "plain", decodeTo<yenc::scalar::decode>},
};

}  // namespace
