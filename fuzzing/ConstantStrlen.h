#pragma once

// Included before everything else in builds with clang++: Qt 5's QLatin1String measures a literal with
// strlen(), which GCC evaluates in constant expressions and clang does not, but for its built-in form.

#include <cstring>

#define strlen __builtin_strlen
