#include "standin/string_services.h"

#include <cstdint>
#include <memory>
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
    auto text = string == nullptr ? transcode({}, kEncodingUTF8, encoding)
                                  : transcode(string->bytes(), string->mark(), encoding);
    if (!text) return false;
    host.dress(*text, encoding);
    Form* const form = host.own(std::make_unique<Form>(*text, host.formLayout(encoding)));
    record->data = host.options().recordsWithoutData ? nullptr : form->contents.data();
    record->length = static_cast<std::int32_t>(std::max<std::size_t>(text->size(), record->data ? 0 : 4));
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
    auto text = transcode(string->bytes(), string->mark(), encoding);
    if (!text) return nullptr;
    visit.host().dress(*text, encoding);
    return visit.host().makeConverted(*text, encoding);
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
