#pragma once

#include <span>
#include <string>

#include "platform/text/locale_format.h"
#include "pool/account.h"

namespace orvane {

/// One worker as the workers table shows it.
struct WorkerRow {
  std::string name;  ///< the short name
  std::string nameToolTip;
  std::string stateWord;
  std::string stateToolTip;  ///< empty: none
  std::string rate5m;
  std::string rate60m;
  std::string rate24h;
};

/// Costs little, so that a table of any length asks only for the rows in sight.
[[nodiscard]] WorkerRow workerRow(const BraiinsWorkerStatus& worker, const LocaleFormat& format);

/// The part of a Stratum login after its first "."; the whole when there is no such part.
[[nodiscard]] std::string_view shortWorkerName(std::string_view fullName);

/// "2 of 3 OK", or "3 OK" when all are; empty without workers.
[[nodiscard]] std::string workersSubtitle(std::span<const BraiinsWorkerStatus> workers);

}  // namespace orvane
