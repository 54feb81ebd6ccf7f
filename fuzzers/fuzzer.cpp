#include "fuzzer.h"
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace orvane {
void require(bool holds) {
  if (!holds) { std::abort(); }
}

std::string_view takeLine(std::string_view& rest) {
  const std::string_view line = rest.substr(0, rest.find('\n'));
  rest.remove_prefix(std::min(rest.size(), line.size() + 1));
  return line;
}
}  // namespace orvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  orvane::tryInput({reinterpret_cast<const char*>(data), size});
  return 0;
}
