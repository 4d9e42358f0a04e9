/// The registered methods that convert a string's encoding outright.
#pragma once

#include "host/records.h"

/// The text of `s` as a UTF-16 host string, as the host converts it; null where the host can't.
[[nodiscard]] REALstringStruct* RBUnicodeString(REALstringStruct* s) noexcept;

/// The text of `s` as a UTF-8 host string, as the host converts it; null where the host can't.
[[nodiscard]] REALstringStruct* RBNativeString(REALstringStruct* s) noexcept;
