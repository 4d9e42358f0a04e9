#include "host/methods.h"
#include "host/services.h"

REALstringStruct* RBUnicodeString(REALstringStruct* s) noexcept { return REALConvertString(s, kEncodingUTF16); }

REALstringStruct* RBNativeString(REALstringStruct* s) noexcept { return REALConvertString(s, kEncodingUTF8); }
