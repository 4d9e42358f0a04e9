#include "host/globals.h"

constinit HostResolver gResolver = nullptr;
constinit double rbversion_rbversion = 0.0;
