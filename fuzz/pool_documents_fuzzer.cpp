// The pool's account documents: any bytes give a document or nothing, and every document maps.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "pool/account.h"
#include "pool/pool_documents.h"

namespace orvane {
namespace {

void mapProfile(std::string_view body) {
  if (const std::optional<BraiinsProfileResponse> response = decodeProfile(body)) {
    (void)accountStats(*response);
  }
}

void mapWorkers(std::string_view body) {
  std::optional<BraiinsWorkersResponse> response = decodeWorkers(body);
  if (!response) { return; }
  const std::vector<BraiinsWorkerStatus> workers = workerStatuses(std::move(*response));
  const auto fasterFirst = [](const auto& a, const auto& b) { return a.hashRate5m > b.hashRate5m; };
  const bool inOrder = std::ranges::is_sorted(workers, fasterFirst);
  const bool stays = workerOrder(workers) == workers;
  if (!inOrder || !stays) { std::abort(); }
}

}  // namespace
}  // namespace orvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view body(reinterpret_cast<const char*>(data), size);
  orvane::mapProfile(body);
  orvane::mapWorkers(body);
  return 0;
}
