#include "services/faults/fault.h"

#include <algorithm>
#include <array>

namespace orvane::services {
namespace {

struct Entry {
  FaultKind kind;
  std::string_view name;
};

constexpr std::array entries{
    Entry{FaultKind::status, "status"},     Entry{FaultKind::silence, "silence"},
    Entry{FaultKind::drop, "drop"},         Entry{FaultKind::hangUp, "hang-up"},
    Entry{FaultKind::garbage, "garbage"},   Entry{FaultKind::truncatedJson, "truncated-json"},
    Entry{FaultKind::redirect, "redirect"}, Entry{FaultKind::redirectWithin, "redirect-within"},
    Entry{FaultKind::slow, "slow"},         Entry{FaultKind::huge, "huge"},
    Entry{FaultKind::delay, "delay"},       Entry{FaultKind::tipLag, "tip-lag"},
    Entry{FaultKind::refuse, "refuse"},
};

}  // namespace

std::string_view faultName(FaultKind kind) {
  return std::ranges::find(entries, kind, &Entry::kind)->name;
}

std::optional<FaultKind> faultNamed(std::string_view name) {
  const auto found = std::ranges::find(entries, name, &Entry::name);
  if (found == entries.end()) { return std::nullopt; }
  return found->kind;
}

}  // namespace orvane::services
