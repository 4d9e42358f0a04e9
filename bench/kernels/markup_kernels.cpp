/// Kernels on markup.
#include "bench/kernels/kernel.h"
#include "markup/encoding_need.h"
#include "markup/entity_decoder.h"
#include "markup/html_encoder.h"
#include "markup/readiness.h"
#include "markup/tag_removal.h"
#include "markup/xml_encoder.h"

namespace {

template <auto need, auto encode>
std::int64_t encodeHtml(const Operands& in) {
  if (!need(in.utf32)) return 0;
  OutputBuffer out;
  const auto markup = in.integers[0] != 0 ? html::Markup::kKeep : html::Markup::kEscape;
  return encode(in.utf32, markup, out) ? out.size() : -1;
}

template <auto need, auto encode>
std::int64_t encodeXml(const Operands& in) {
  if (!need(in.utf32)) return 0;
  OutputBuffer out;
  return encode(in.utf32, xml::Apostrophe::kNumber, out) ? out.size() : -1;
}

template <auto decode>
std::int64_t decodeEntities(const Operands& in) {
  const std::span<char32_t> out(reinterpret_cast<char32_t*>(in.scratch.data()), in.utf32.size());
  return static_cast<std::int64_t>(decode(in.utf32, out));
}

template <auto isReady>
std::int64_t ready(const Operands& in) {
  return isReady(in.first());
}

template <auto remove>
std::int64_t removeTags(const Operands& in) {
  return static_cast<std::int64_t>(remove(in.first(), in.scratch.first(in.first().size())));
}

std::int64_t replaceTags(const Operands& in) {
  const std::int64_t size = tags::replacedSize(in.first(), in.bytes[1]);
  tags::replace(in.first(), in.bytes[1], in.scratch.first(static_cast<std::size_t>(size)));
  return size;
}

namespace need = encoding_need;

const KernelLines lines{
    {"HTML encode", "kernel", encodeHtml<need::forHtml, html::encode>},
    {"HTML encode", "plain", encodeHtml<need::scalar::forHtml, html::scalar::encode>},
    {"HTML encode, markup kept", "kernel", encodeHtml<need::forHtml, html::encode>},
    {"HTML encode, markup kept", "plain", encodeHtml<need::scalar::forHtml, html::scalar::encode>},
    {"XML encode", "kernel", encodeXml<need::forXml, xml::encode>},
    {"XML encode", "plain", encodeXml<need::scalar::forXml, xml::scalar::encode>},
    {"entity decode", "kernel", decodeEntities<entity_decoder::decode>},
    {"entity decode", "plain", decodeEntities<entity_decoder::scalar::decode>},
    {"HTML readiness", "kernel", ready<readiness::isReady>},
    {"HTML readiness", "plain", ready<readiness::scalar::isReady>},
    {"tag removal", "kernel", removeTags<tags::remove>},
    {"tag removal", "plain", removeTags<tags::scalar::remove>},
    {"tag replacement", "kernel", replaceTags},
};

}  // namespace
