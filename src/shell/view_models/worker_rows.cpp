#include "shell/view_models/worker_rows.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "core/display_texts.h"
#include "shell/view_models/card_contents.h"

namespace orvane {

namespace {

const char* stateWord(BraiinsWorkerStatus::State state) {
  using enum BraiinsWorkerStatus::State;
  switch (state) {
    case ok:
      return "OK";
    case low:
      return "Low";
    case off:
      return "Off";
    case disabled:
      return "Disabled";
    case unknown:
      return unknownFigure;
  }
  return unknownFigure;
}

}  // namespace

std::string_view shortWorkerName(std::string_view fullName) {
  const auto dot = fullName.find('.');
  if (dot == std::string_view::npos || dot + 1 == fullName.size()) { return fullName; }
  return fullName.substr(dot + 1);
}

WorkerRow workerRow(const BraiinsWorkerStatus& worker, const LocaleFormat& format) {
  return {.name = std::string(shortWorkerName(worker.fullName)),
          .nameToolTip = worker.fullName,
          .stateWord = stateWord(worker.state),
          .stateToolTip = lastShareText(format, worker.lastShare),
          .rate5m = hashRateText(worker.hashRate5m),
          .rate60m = hashRateText(worker.hashRate60m),
          .rate24h = hashRateText(worker.hashRate24h)};
}

std::string workersSubtitle(std::span<const BraiinsWorkerStatus> workers) {
  if (workers.empty()) { return {}; }
  const auto okCount =
      std::ranges::count(workers, BraiinsWorkerStatus::State::ok, &BraiinsWorkerStatus::state);
  if (std::cmp_equal(okCount, workers.size())) { return fmt::format("{} OK", okCount); }
  return fmt::format("{} of {} OK", okCount, workers.size());
}

}  // namespace orvane
