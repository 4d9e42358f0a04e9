/// Tests of kernels: every form of one, input and output at chosen places, seeded texts, examples and naive twins.
#pragma once

#include <doctest/doctest.h>
#include <string>
#include <string_view>

#include "tests/support/forms.h"
#include "tests/support/placed_bytes.h"
#include "tests/support/random_bytes.h"
#include "tests/support/shortening.h"
#include "tests/support/twins.h"
