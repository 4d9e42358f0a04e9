/// Kernels of the codecs of "%" and of the backslash.
#include "bench/kernels/kernel.h"
#include "codecs/mysql.h"
#include "codecs/url.h"

namespace {

template <auto encode>
std::int64_t encodeUrl(const Operands& in) {
  return static_cast<std::int64_t>(encode(in.first(), url::Options(in.integers[0]), in.scratch));
}

template <auto decode>
std::int64_t decodeUrl(const Operands& in) {
  return static_cast<std::int64_t>(decode(in.first(), url::Options(in.integers[0]), in.scratch));
}

template <auto decode>
std::int64_t unescape(const Operands& in) {
  return static_cast<std::int64_t>(decode(in.first(), in.scratch));
}

const KernelLines lines{
    {"URL encode", "kernel", encodeUrl<url::encode>},      {"URL encode", "plain", encodeUrl<url::scalar::encode>},
    {"URL decode", "kernel", decodeUrl<url::decode>},      {"URL decode", "plain", decodeUrl<url::scalar::decode>},
    {"MySQL unescape", "kernel", unescape<mysql::decode>}, {"MySQL unescape", "plain", unescape<mysql::scalar::decode>},
};

}  // namespace
