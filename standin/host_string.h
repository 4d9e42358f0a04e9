/// The host's strings: immutable bytes marked with an encoding.
#pragma once

#include <string_view>

#include "host/records.h"
#include "standin/contents.h"
#include "standin/counted.h"

namespace standin {

/// A string. Its structure is the documented one, and can be read directly, on hosts below 2016.0; on later ones
/// it is poisoned, so that who still reads it is found out.
class HostString final : public REALstringStruct, public Counted {
 public:
  HostString(std::string_view bytes, TextEncoding mark, const Contents::Layout& layout, bool readable);

  [[nodiscard]] static HostString* of(REALstringStruct* handle) noexcept { return static_cast<HostString*>(handle); }

  [[nodiscard]] std::string_view bytes() const noexcept { return contents_.view(); }
  /// The bytes that go on repeating; all of them where they don't.
  [[nodiscard]] std::string_view once() const noexcept { return bytes().substr(0, ownSize_); }
  [[nodiscard]] const std::uint8_t* data() const noexcept { return contents_.data(); }
  [[nodiscard]] TextEncoding mark() const noexcept { return mark_; }
  void setMark(TextEncoding mark) noexcept;

  void dissolve() noexcept override;
  [[nodiscard]] std::string description() const override;

 private:
  Contents contents_;
  std::size_t ownSize_;
  TextEncoding mark_;
  bool readable_;
};

}  // namespace standin
