// The pool's history documents and the stored history: any bytes give days or nothing, and days
// that can be stored read back as they were. The first line is the pool's rewards document, what
// follows it the daily hash rates.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pool/history.h"

namespace orvane {
namespace {

using Days = std::vector<BraiinsHistoryDay>;

void store(const Days& days) {
  (void)BraiinsHistorySummary(days);
  const std::optional<std::string> stored = encodeHistory(days);
  if (!stored) { return; }
  // Storing may move a date at the very beginning of time, but only once.
  const std::optional<Days> readBack = decodeHistory(*stored);
  if (!readBack || readBack->size() != days.size()) { std::abort(); }
  const std::optional<std::string> storedAgain = encodeHistory(*readBack);
  if (!storedAgain || decodeHistory(*storedAgain) != readBack) { std::abort(); }
}

}  // namespace
}  // namespace orvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace orvane;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (const std::optional<Days> days = decodeHistory(bytes)) { store(*days); }
  const std::size_t end = bytes.find('\n');
  std::optional<std::string_view> hashrates;
  if (end != std::string_view::npos) { hashrates = bytes.substr(end + 1); }
  if (const auto days = buildHistoryDays(bytes.substr(0, end), hashrates)) { store(*days); }
  return 0;
}
