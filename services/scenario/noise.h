#pragma once

#include <cstdint>

namespace orvane::services {
/// Scatters a number over all 64 bits (the finalizer of SplitMix64): the same number gives the
/// same bits in every run, neighbours give unrelated ones.
[[nodiscard]] constexpr std::uint64_t scatter(std::uint64_t number) {
  number += 0x9e3779b97f4a7c15;
  number = (number ^ (number >> 30)) * 0xbf58476d1ce4e5b9;
  number = (number ^ (number >> 27)) * 0x94d049bb133111eb;
  return number ^ (number >> 31);
}

/// A value from -1 to 1 that belongs to the `step`-th step of the sequence `seed`.
[[nodiscard]] constexpr double noise(std::uint64_t seed, std::int64_t step) {
  const std::uint64_t bits = scatter(scatter(seed) ^ static_cast<std::uint64_t>(step));
  return static_cast<double>(bits >> 11) / 4503599627370496.0 - 1.0;
}
}  // namespace orvane::services
