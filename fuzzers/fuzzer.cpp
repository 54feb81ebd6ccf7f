#include "fuzzer.h"
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace orvane {
void require(bool holds, std::source_location where) {
  if (holds) { return; }
  std::fprintf(stderr, "%s:%u: does not hold\n", where.file_name(), where.line());
  std::abort();
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
