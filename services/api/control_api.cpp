#include "services/api/control_api.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

#include <nlohmann/json.hpp>

#include "services/api/control_requests.h"
#include "services/local_services.h"

namespace orvane::services {
namespace {

Response done() { return {.body = R"({"done": true})"}; }

Response addFault(const Request& request, LocalServices& services) {
  const auto fault = faultRequest(request.body);
  if (!fault) { return textResponse(400, fault.error()); }
  services.fault(*fault);
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
  const auto time = advanceRequest(request.body);
  if (!time) { return textResponse(400, time.error()); }
  services.advance(*time);
  return done();
}

Response pay(const Request& request, LocalServices& services) {
  const auto payment = payRequest(request.body);
  if (!payment) { return textResponse(400, payment.error()); }
  if (payment->isCoinbase) {
    services.payBlockReward(payment->sats, payment->address);
  } else {
    services.pay(payment->sats, payment->address);
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
