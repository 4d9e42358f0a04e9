/// Services for exceptions, memory blocks and their references.
#pragma once

#include "host/records.h"

namespace standin::services {

service::NewInstance newInstance;
service::SetPropValueString setPropValueString;
service::SetPropValueInteger setPropValueInteger;
service::SetPropValueInteger setPropValueInt;
service::RaiseException raiseException;
service::LockObject lockObject;
service::UnlockObject unlockObject;
service::MemoryBlockGetSize memoryBlockGetSize;
service::MemoryBlockGetPtr memoryBlockGetPtr;
service::NewMemoryBlock newMemoryBlock;

}  // namespace standin::services
