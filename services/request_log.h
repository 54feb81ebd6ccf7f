#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <optional>
#include <string>
#include <vector>
#include <nlohmann/json_fwd.hpp>
#include "services/server/http_message.h"
#include "services/service.h"

namespace orvane::services {
/// A request as it was received, noted before its answer was sent.
struct LoggedRequest {
  std::chrono::sys_time<std::chrono::milliseconds> time;
  double monotonic = 0;                 ///< seconds on the system's steady clock
  std::optional<double> sincePrevious;  ///< seconds since the service's request before this one
  Service service = Service::pool;
  std::string method;
  std::string target;  ///< path and query
  std::vector<Header> headers;
  int status = 0;     ///< of the answer; 0 when none was sent
  std::string fault;  ///< name of the fault that hit it; empty: none
};

[[nodiscard]] nlohmann::ordered_json toJson(const LoggedRequest& entry);

/// Every request to the services, in memory and as one JSON line each in a file that is complete
/// up to the last request at any moment. Safe to use from any thread.
class RequestLog {
 public:
  explicit RequestLog(const std::filesystem::path& file);

  void add(Service service, const Request& request, int status, std::string fault);

  /// In the order of their arrival.
  [[nodiscard]] std::vector<LoggedRequest> entries() const;

 private:
  [[nodiscard]] std::optional<double> secondsSincePrevious(Service service, double now) const;

  mutable std::mutex mutex_;
  std::ofstream file_;
  std::vector<LoggedRequest> entries_;
};
}  // namespace orvane::services
