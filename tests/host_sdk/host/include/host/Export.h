#pragma once

#if defined(PIPEWORKS_BUILD)
#define PIPEWORKS_API __attribute__((visibility("default")))
#else
#define PIPEWORKS_API
#endif
