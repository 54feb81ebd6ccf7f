#pragma once

#include <optional>
#include <string_view>

#include "pool/pool_documents.h"

/// Decoders of the pool's answers. Each gives nothing when any part of the body does not match its
/// document, and never a part of one: a body that is no JSON, a member of another type, a required
/// member that is missing or null. Members that no record names are ignored; an optional member
/// that is null counts as missing.
namespace orvane {

[[nodiscard]] std::optional<BraiinsProfileResponse> decodeProfile(std::string_view body);
/// Every currency of the document must match, not only the one that is used.
[[nodiscard]] std::optional<BraiinsWorkersResponse> decodeWorkers(std::string_view body);
[[nodiscard]] std::optional<BraiinsRewardsResponse> decodeRewards(std::string_view body);
/// Every group of the document must match, not only the one that is used.
[[nodiscard]] std::optional<BraiinsDailyHashrateResponse> decodeDailyHashrate(
    std::string_view body);

}  // namespace orvane
