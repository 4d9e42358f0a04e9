/// The services of one call, with what they were asked for, told so that a person can follow.
#pragma once

#include <optional>
#include <vector>

#include "standin/counted.h"
#include "standin/service_names.h"
#include "standin/values.h"

namespace standin {

/// A service being used. The things are known until their account closes.
struct ServiceUse {
  Service service;
  const Counted* thing = nullptr;        ///< what it was asked about
  const Counted* made = nullptr;         ///< what it handed out
  std::optional<TextEncoding> encoding;  ///< asked for, or given to what was made
};

/// Names the things: "argument 1", "result", and "string 1", "object 1", "record 1" for others as they turn up.
[[nodiscard]] std::vector<ServiceCall> transcript(const std::vector<ServiceUse>& uses,
                                                  const std::vector<const Counted*>& arguments, const Counted* result);

}  // namespace standin
