/// Services that read, convert and build strings.
#pragma once

#include "host/records.h"

namespace standin::services {

service::GetStringEncoding getStringEncoding;
service::LockString lockString;
service::UnlockString unlockString;
service::GetStringContents getStringContents;
service::LenB lenB;
service::GetStringData getStringData;
service::DisposeStringData disposeStringData;
service::ConvertString convertString;
service::BuildStringWithEncoding buildStringWithEncoding;
service::BuildString buildString;
service::SetStringEncoding setStringEncoding;

}  // namespace standin::services
