/// The host's objects: memory blocks and exceptions. To the plugin they are opaque.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "host/records.h"
#include "standin/contents.h"
#include "standin/counted.h"
#include "standin/values.h"

struct REALobjectStruct : standin::Counted {
  REALobjectStruct() noexcept : Counted(Kind::kObject) {}
};

/// Bytes that can be written.
struct REALmemoryBlockStruct final : REALobjectStruct {
  explicit REALmemoryBlockStruct(standin::Contents bytes) noexcept : contents(std::move(bytes)) {}

  void dissolve() noexcept override { contents = standin::Contents(); }
  [[nodiscard]] std::string description() const override {
    return "memory block of " + std::to_string(contents.size()) + " bytes";
  }

  standin::Contents contents;
};

namespace standin {

using MemoryBlock = REALmemoryBlockStruct;

/// An instance of one of the host's exception classes.
struct ExceptionObject final : REALobjectStruct {
  explicit ExceptionObject(std::string className) { raised.className = std::move(className); }

  void dissolve() noexcept override {}
  [[nodiscard]] std::string description() const override { return "instance of " + raised.className; }

  Raised raised;
};

}  // namespace standin
