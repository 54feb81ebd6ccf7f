#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/balance_state.h"
#include "platform/text/locale_format.h"
#include "shell/view_models/metric.h"

namespace orvane {

/// What surrounds the table of the daily history.
struct HistorySectionState {
  std::string subtitle;  ///< "365 days"; empty without history
  bool isEmpty = true;   ///< then the hint and a button that loads stand in the table's place
  bool isLoading = false;
  std::optional<std::string> status;
};

[[nodiscard]] HistorySectionState historySectionState(const BalanceState& state);

/// The totals over `summary`, and those that `extraMetrics` adds, in the order of the row.
[[nodiscard]] std::vector<Metric> historySummaryMetrics(const BraiinsHistorySummary& summary,
                                                        const LocaleFormat& format,
                                                        const std::vector<Metric>& extraMetrics);

/// The value of all rewards in the preferred currency; none without prices.
[[nodiscard]] std::vector<Metric> historyValueMetrics(const BraiinsHistorySummary& summary,
                                                      const BalanceState& state,
                                                      const LocaleFormat& format);

}  // namespace orvane
