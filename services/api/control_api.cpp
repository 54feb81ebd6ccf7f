#include <algorithm>
#include <array>
#include <initializer_list>
#include <limits>
#include <system_error>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include "services/api/answers.h"
#include "services/local_services.h"

namespace orvane::services {
namespace {
using nlohmann::json;

/// A year: long enough for every story, short enough for every clock.
constexpr double longestSeconds = 366.0 * 86'400;

bool take(const json& value, std::string& target) {
  if (!value.is_string()) { return false; }
  target = value.get<std::string>();
  return true;
}

bool take(const json& value, bool& target) {
  if (!value.is_boolean()) { return false; }
  target = value.get<bool>();
  return true;
}

bool take(const json& value, std::int64_t& target) {
  if (!value.is_number_integer() || value > std::numeric_limits<std::int64_t>::max()) {
    return false;
  }
  target = value.get<std::int64_t>();
  return true;
}

bool take(const json& value, double& target) {
  if (!value.is_number()) { return false; }
  target = value.get<double>();
  return target >= 0 && target <= longestSeconds;
}

/// Reads the members of one object; remembers the first that is wrong.
class Members {
 public:
  explicit Members(std::string_view body) : object_(json::parse(body, nullptr, false)) {
    if (!object_.is_object()) { problem_ = "The body is not a JSON object"; }
  }

  /// Leaves `target` as it is where the member is absent.
  template <typename T>
  bool read(const char* name, T& target) {
    if (problem_ || !object_.contains(name)) { return false; }
    if (take(object_[name], target)) { return true; }
    problem_ = fmt::format("\"{}\" is not of the right type or out of range", name);
    return false;
  }

  void require(bool condition, const char* sentence) {
    if (!problem_ && !condition) { problem_ = sentence; }
  }

  /// Refuses misspelt members, which would otherwise be silently without effect.
  void allowOnly(std::initializer_list<std::string_view> names) {
    if (problem_) { return; }
    for (const auto& [name, value] : object_.items()) {
      if (std::ranges::find(names, name) == names.end()) {
        problem_ = fmt::format("\"{}\" is not known", name);
      }
    }
  }

  /// A sentence about what is wrong; none when all is well.
  [[nodiscard]] const std::optional<std::string>& problem() const { return problem_; }

 private:
  json object_;
  std::optional<std::string> problem_;
};

std::chrono::milliseconds milliseconds(double seconds) {
  return std::chrono::round<std::chrono::milliseconds>(ScenarioSeconds(seconds));
}

/// A fault's numbers as they stand in JSON: times in seconds.
struct FaultNumbers {
  std::int64_t status = 500;
  std::int64_t count = 0;
  std::int64_t blocks = 1;
  double delay = 0;
  double interval = 1;
};

void readNumbers(Members& members, Fault& fault) {
  FaultNumbers numbers;
  members.read("status", numbers.status);
  members.read("blocks", numbers.blocks);
  members.read("delay", numbers.delay);
  members.read("interval", numbers.interval);
  members.require(numbers.status >= 200 && numbers.status <= 599, "\"status\" is 200 to 599");
  fault.status = static_cast<int>(numbers.status);
  fault.blocks = numbers.blocks;
  fault.delay = milliseconds(numbers.delay);
  fault.interval = milliseconds(numbers.interval);
  if (members.read("count", numbers.count)) {
    members.require(numbers.count > 0 && numbers.count <= 1'000'000, "\"count\" is 1 or more");
    fault.count = static_cast<int>(numbers.count);
  }
}

Response done() { return {.body = R"({"done": true})"}; }

Response addFault(const Request& request, LocalServices& services) {
  Members members(request.body);
  members.allowOnly({"service", "kind", "path", "count", "status", "delay", "interval", "blocks"});
  std::string service;
  std::string kind;
  Fault fault;
  members.read("service", service);
  members.read("kind", kind);
  members.read("path", fault.path);
  readNumbers(members, fault);
  const auto knownService = serviceNamed(service);
  const auto knownKind = faultNamed(kind);
  members.require(knownService.has_value(), "\"service\" is none of the services");
  members.require(knownKind.has_value(), "\"kind\" is none of the kinds");
  if (members.problem()) { return textResponse(400, *members.problem()); }
  fault.service = *knownService;
  fault.kind = *knownKind;
  services.fault(std::move(fault));
  return done();
}

Response clearFaults(const Request&, LocalServices& services) {
  try {
    services.clearFaults();
  } catch (const std::system_error& problem) {
    // Another program has taken a port that was closed here.
    return textResponse(500, problem.what());
  }
  return done();
}

Response listRequests(const Request&, LocalServices& services) {
  auto list = nlohmann::ordered_json::array();
  for (const LoggedRequest& entry : services.requests()) {
    list.push_back(toJson(entry));
  }
  return {.body = list.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace)};
}

Response advance(const Request& request, LocalServices& services) {
  Members members(request.body);
  members.allowOnly({"advance"});
  double seconds = 0;
  members.require(members.read("advance", seconds), "\"advance\" is missing");
  if (members.problem()) { return textResponse(400, *members.problem()); }
  services.advance(ScenarioSeconds(seconds));
  return done();
}

Response pay(const Request& request, LocalServices& services) {
  Members members(request.body);
  members.allowOnly({"sats", "coinbase", "address"});
  std::int64_t sats = 0;
  bool isCoinbase = false;
  std::string address;
  members.read("sats", sats);
  members.read("coinbase", isCoinbase);
  members.read("address", address);
  members.require(sats > 0, "\"sats\" is 1 or more");
  if (members.problem()) { return textResponse(400, *members.problem()); }
  if (isCoinbase) {
    services.payBlockReward(sats, address);
  } else {
    services.pay(sats, address);
  }
  return done();
}

Response mineBlock(const Request&, LocalServices& services) {
  services.mineBlock();
  return done();
}

struct Route {
  std::string_view method;
  std::string_view target;
  Response (*answer)(const Request&, LocalServices&);
};

constexpr std::array routes{
    Route{"POST", "/fault", addFault},
    Route{"DELETE", "/faults", clearFaults},
    Route{"GET", "/requests", listRequests},
    Route{"POST", "/scenario", advance},
    Route{"POST", "/pay", pay},
    Route{"POST", "/block", mineBlock},
};
}  // namespace

Response controlAnswer(const Request& request, LocalServices& services) {
  const auto route = std::ranges::find_if(routes, [&](const Route& each) {
    return each.method == request.method && each.target == request.target;
  });
  if (route == routes.end()) { return textResponse(404, "No such control request"); }
  return route->answer(request, services);
}
}  // namespace orvane::services
