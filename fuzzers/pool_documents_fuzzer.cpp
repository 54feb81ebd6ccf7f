// The pool's account documents: any bytes give a document or nothing, and every document maps.

#include <algorithm>
#include <functional>
#include <utility>
#include "fuzzer.h"
#include "pool/account.h"

void orvane::tryInput(std::string_view body) {
  if (const auto profile = decodeProfile(body)) { (void)accountStats(*profile); }
  std::optional<BraiinsWorkersResponse> response = decodeWorkers(body);
  if (!response) { return; }
  const std::vector<BraiinsWorkerStatus> workers = workerStatuses(*std::move(response));
  require(std::ranges::is_sorted(workers, std::greater(), &BraiinsWorkerStatus::hashRate5m));
  require(workerOrder(workers) == workers);
}
