#include "RandomSource.h"

#include <chrono>

RandomSource::RandomSource(std::uint32_t seed) : state_(seed != 0 ? seed : 0x9E3779B9u) {}

RandomSource RandomSource::SeededFromTimeOfDay() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto micros = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
    return RandomSource(static_cast<std::uint32_t>(micros % 86'400'000'000LL));
}

std::uint32_t RandomSource::Next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    return state_;
}

double RandomSource::Unit() {
    return static_cast<double>(Next()) / 4294967296.0;
}
