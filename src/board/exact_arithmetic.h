#ifndef QUORVANE_BOARD_EXACT_ARITHMETIC_H_
#define QUORVANE_BOARD_EXACT_ARITHMETIC_H_

// Refuses to be compiled where floating-point numbers do not come out as on every other machine.

#include <cfloat>
#include <limits>

#if FLT_EVAL_METHOD != 0
#error \
    "Sums and products must be rounded to their own type, or network.dat differs from other machines: \
compile without excess precision, on 32-bit x86 with -msse2 -mfpmath=sse."
#endif

#if defined(__FAST_MATH__) || defined(_M_FP_FAST)
#error "Sums must keep their order, or network.dat differs from other machines: compile without -ffast-math."
#endif

static_assert(
    std::numeric_limits<float>::is_iec559 && std::numeric_limits<double>::is_iec559,
    "Floating-point numbers must be those of IEEE 754, or network.dat differs from that of other machines.");

#endif  // QUORVANE_BOARD_EXACT_ARITHMETIC_H_
