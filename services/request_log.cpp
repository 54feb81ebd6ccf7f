#include "services/request_log.h"
#include <algorithm>
#include <ranges>
#include <utility>
#include <nlohmann/json.hpp>

namespace orvane::services {
namespace {
/// Clients may send any bytes; a log line stays valid JSON all the same.
std::string lineOf(const nlohmann::ordered_json& json) {
  return json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

double monotonicSeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}
}  // namespace

nlohmann::ordered_json toJson(const LoggedRequest& entry) {
  nlohmann::ordered_json json{{"time", entry.time.time_since_epoch().count()},
                              {"monotonic", entry.monotonic},
                              {"service", serviceName(entry.service)},
                              {"method", entry.method},
                              {"path", entry.target},
                              {"headers", nlohmann::ordered_json::array()},
                              {"status", entry.status}};
  for (const Header& header : entry.headers) {
    json["headers"].push_back({{"name", header.name}, {"value", header.value}});
  }
  if (!entry.fault.empty()) { json["fault"] = entry.fault; }
  if (entry.sincePrevious) { json["sincePrevious"] = *entry.sincePrevious; }
  return json;
}

RequestLog::RequestLog(const std::filesystem::path& file) : file_(file, std::ios::trunc) {}

std::optional<double> RequestLog::secondsSincePrevious(Service service, double now) const {
  const auto newestFirst = entries_ | std::views::reverse;
  const auto found = std::ranges::find(newestFirst, service, &LoggedRequest::service);
  if (found == newestFirst.end()) { return std::nullopt; }
  return now - found->monotonic;
}

void RequestLog::add(Service service, const Request& request, int status, std::string fault) {
  const std::lock_guard lock(mutex_);
  const double now = monotonicSeconds();
  LoggedRequest entry{
      .time = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now()),
      .monotonic = now,
      .sincePrevious = secondsSincePrevious(service, now),
      .service = service,
      .method = request.method,
      .target = request.target,
      .headers = request.headers,
      .status = status,
      .fault = std::move(fault)};
  file_ << lineOf(toJson(entry)) << std::endl;
  entries_.push_back(std::move(entry));
}

std::vector<LoggedRequest> RequestLog::entries() const {
  const std::lock_guard lock(mutex_);
  return entries_;
}
}  // namespace orvane::services
