#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the run with the condition that does not hold, as a fuzzer expects it of a fault.
#define REQUIRE(condition)                                                                                   \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #condition);              \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (false)
