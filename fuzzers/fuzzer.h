#pragma once

#include <source_location>
#include <string_view>

namespace orvane {
/// What a fuzzer does with each input; every program has its own.
void tryInput(std::string_view input);

/// What does not hold is a fault found: the program ends, and says where.
void require(bool holds, std::source_location where = std::source_location::current());

/// The beginning of `rest` up to the end of its line, which is taken away from it.
std::string_view takeLine(std::string_view& rest);
}  // namespace orvane
