/// What the plugin knows of the host it runs in. Written once, by `REALPluginMain`, before any method runs.
#pragma once

#include "host/records.h"

/// The host's resolver; every service is looked up through it.
extern HostResolver gResolver;

/// The host's version, for example 2013.04; 0.0 where the host doesn't tell.
extern double rbversion_rbversion;
