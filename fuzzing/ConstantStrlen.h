#pragma once

// Included first in builds with clang++: Qt 5's QLatin1String calls strlen(), which GCC evaluates in constant
// expressions; clang does so only for the built-in function.

#include <cstring>

#define strlen __builtin_strlen
