#include "standin/string_services.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "standin/serving.h"
#include "standin/transcode.h"

namespace standin::services {
namespace {

/// A converted form that was handed out in a record.
class Form final : public Counted {
 public:
  Form(std::string_view bytes, const Contents::Layout& layout) : Counted(Kind::kRecord), contents(bytes, layout) {}
  void dissolve() noexcept override { contents = Contents(); }
  std::string description() const override { return "record of " + std::to_string(contents.size()) + " bytes"; }

  Contents contents;
};

/// A string in another encoding: what its bytes give, and how far that repeats where they do.
struct Converted {
  std::string bytes;
  std::size_t stretchedTo;
};

std::optional<Converted> converted(const Host& host, const HostString* string, TextEncoding encoding) {
  if (string == nullptr) {
    if (!isKnown(encoding)) return std::nullopt;
    Converted empty{};
    host.dress(empty.bytes, encoding);
    return empty;
  }
  const std::string_view once = string->once();
  auto bytes = transcode(once, string->mark(), encoding);
  if (!bytes) return std::nullopt;
  if (once.size() < string->bytes().size()) {
    const std::size_t size = string->bytes().size() / once.size() * bytes->size();
    return Converted{std::move(*bytes), size};
  }
  host.dress(*bytes, encoding);
  return Converted{std::move(*bytes), 0};
}

/// Tells a record the host filled from one it never saw.
char gRecordSeal;

REALstringStruct* build(const Visit& visit, const void* bytes, HostInteger length, TextEncoding encoding) {
  visit.note(encoding);
  if (length < 0 || length > INT32_MAX || (bytes == nullptr && length > 0)) return nullptr;
  return visit.host().makeConverted({static_cast<const char*>(bytes), static_cast<std::size_t>(length)}, encoding);
}

}  // namespace

// --- Reading strings

TextEncoding getStringEncoding(REALstringStruct* handle) {
  return serve(Service::kGetStringEncoding, [&](const Visit& visit) -> TextEncoding {
    if (const auto answer = visit.host().answer(Service::kGetStringEncoding)) return static_cast<TextEncoding>(*answer);
    const HostString* string = open(visit, handle);
    return string == nullptr ? kEncodingNone : string->mark();
  });
}

void lockString(REALstringStruct* handle) {
  serve(Service::kLockString, [&](const Visit& visit) {
    if (HostString* string = open(visit, handle)) string->retain();
  });
}

void unlockString(REALstringStruct* handle) {
  serve(Service::kUnlockString, [&](const Visit& visit) { visit.host().release(open(visit, handle)); });
}

const void* getStringContents(REALstringStruct* handle) {
  return serve(Service::kGetStringContents, [&](const Visit& visit) -> const void* {
    const HostString* string = open(visit, handle);
    return string == nullptr ? nullptr : string->data();
  });
}

std::int32_t lenB(REALstringStruct* handle) {
  return serve(Service::kLenB, [&](const Visit& visit) -> std::int32_t {
    if (const auto answer = visit.host().answer(Service::kLenB)) return static_cast<std::int32_t>(*answer);
    const HostString* string = open(visit, handle);
    return string == nullptr ? 0 : static_cast<std::int32_t>(string->bytes().size());
  });
}

// --- Converting

HostBoolean getStringData(REALstringStruct* handle, TextEncoding encoding, StringDataRecord* record) {
  return serve(Service::kGetStringData, [&](const Visit& visit) -> HostBoolean {
    Host& host = visit.host();
    visit.note(encoding);
    const HostString* string = open(visit, handle);
    const auto text = converted(host, string, encoding);
    if (!text) return false;
    Contents::Layout layout = host.formLayout(encoding);
    layout.stretchedTo = text->stretchedTo;
    Form* const form = host.own(std::make_unique<Form>(text->bytes, layout));
    record->data = host.options().recordsWithoutData ? nullptr : form->contents.data();
    record->length = static_cast<std::int32_t>(std::max<std::size_t>(form->contents.size(), record->data ? 0 : 4));
    record->reserved[0] = form;
    record->reserved[1] = &gRecordSeal;
    record->reserved[2] = record;
    return true;
  });
}

void disposeStringData(StringDataRecord* record) {
  serve(Service::kDisposeStringData, [&](const Visit& visit) {
    if (record->reserved[1] != &gRecordSeal) return visit.report("the host never filled the record");
    auto* const form = static_cast<Form*>(record->reserved[0]);
    visit.note(form);
    if (!form->isAlive()) return visit.report("the record was given back before");
    visit.host().release(form);
  });
}

REALstringStruct* convertString(REALstringStruct* handle, TextEncoding encoding) {
  return serve(Service::kConvertString, [&](const Visit& visit) -> REALstringStruct* {
    visit.note(encoding);
    const HostString* string = open(visit, handle);
    if (string == nullptr) return nullptr;
    const auto text = converted(visit.host(), string, encoding);
    return text ? visit.host().makeConverted(text->bytes, encoding, text->stretchedTo) : nullptr;
  });
}

// --- Building strings

REALstringStruct* buildStringWithEncoding(const void* bytes, HostInteger length, TextEncoding encoding) {
  return serve(Service::kBuildStringWithEncoding,
               [&](const Visit& visit) { return build(visit, bytes, length, encoding); });
}

REALstringStruct* buildString(const void* bytes, HostInteger length) {
  return serve(Service::kBuildString, [&](const Visit& visit) { return build(visit, bytes, length, kEncodingNone); });
}

void setStringEncoding(REALstringStruct* handle, TextEncoding encoding) {
  serve(Service::kSetStringEncoding, [&](const Visit& visit) {
    visit.note(encoding);
    HostString* const string = open(visit, handle);
    if (string == nullptr) return visit.report("no string to mark");
    if (string->references() != 1) visit.report("a string that others hold, too, is immutable");
    string->setMark(encoding);
  });
}

}  // namespace standin::services
