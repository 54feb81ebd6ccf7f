// The pool's history documents and the stored history: any bytes give days or nothing, and days
// that can be stored read back as they were. The first line is the pool's rewards document, what
// follows it the daily hash rates.

#include "fuzzer.h"
#include "pool/history.h"

namespace orvane {
namespace {
using Days = std::optional<std::vector<BraiinsHistoryDay>>;

void store(const Days& days) {
  if (!days) { return; }
  (void)BraiinsHistorySummary(*days);
  const std::optional<std::string> stored = encodeHistory(*days);
  if (!stored) { return; }
  // Storing may move a date at the very beginning of time, but only once.
  const Days readBack = decodeHistory(*stored);
  require(readBack && readBack->size() == days->size());
  const std::optional<std::string> storedAgain = encodeHistory(*readBack);
  require(storedAgain && decodeHistory(*storedAgain) == readBack);
}
}  // namespace

void tryInput(std::string_view input) {
  store(decodeHistory(input));
  const bool hasHashrates = input.contains('\n');
  const std::string_view rewards = takeLine(input);
  store(buildHistoryDays(rewards, hasHashrates ? std::optional(input) : std::nullopt));
}
}  // namespace orvane
