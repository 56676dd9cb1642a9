// Helpers for the frame's tests: capturing what the host prints.
#pragma once
#include <string>

#include "host/test_support.h"
