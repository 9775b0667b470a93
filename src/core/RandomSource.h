#pragma once
// The program's one source of random numbers: a small xorshift32 generator. The editor seeds it
// from the time of day; tests seed it with a fixed value so that the noise, the generator, the
// tree placement and the painter give exact, repeatable results. Whatever needs randomness takes
// a RandomSource by reference.

#include <cstdint>

class RandomSource {
public:
    // A seed of 0 would stick at 0 for ever: it is replaced by a fixed non-zero value.
    explicit RandomSource(std::uint32_t seed);
    // Seeded from the microseconds since midnight (UTC).
    static RandomSource SeededFromTimeOfDay();

    // The next 32 random bits.
    std::uint32_t Next();
    std::uint32_t operator()() { return Next(); }
    // The next number in [0, 1): Next() / 2^32.
    double Unit();

private:
    std::uint32_t state_;
};
