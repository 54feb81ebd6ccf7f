#pragma once

#include <chrono>
#include <string>

#include <httplib.h>
#include <nlohmann/json.hpp>

#include "services/local_services.h"

namespace orvane::test {

using services::Fault;
using services::FaultKind;
using services::LocalServices;
using services::LocalServicesOptions;
using services::Service;

/// An HTTPS client that knows no certificate authority but the services' own.
inline httplib::Client clientOf(const LocalServices& services, Service service) {
  httplib::Client client("https://" + services.host(service));
  client.set_ca_cert_path(services.caFile());
  client.enable_server_certificate_verification(true);
  client.set_url_encode(false);  // targets hold to the character
  return client;
}

inline httplib::Headers sampleTokenHeader() {
  return {{"Pool-Auth-Token", std::string(services::sampleToken)}};
}

/// The answer to one GET as a JSON document; discarded unless the status is 200.
inline nlohmann::json documentAt(const LocalServices& services, Service service,
                                 const std::string& target) {
  const auto result = clientOf(services, service).Get(target, sampleTokenHeader());
  if (!result || result->status != 200) { return nlohmann::json::value_t::discarded; }
  return nlohmann::json::parse(result->body, nullptr, false);
}

inline constexpr auto profileTarget = "/accounts/profile/json/btc/";
inline constexpr auto workersTarget = "/accounts/workers/json/btc/";
inline constexpr auto rewardsTarget = "/accounts/rewards/json/btc?from=2000-01-01&to=2026-11-16";
inline constexpr auto hashRateTarget = "/accounts/hash_rate_daily/json/group/btc";
inline constexpr auto tipTarget = "/api/blocks/tip/height";
inline constexpr auto priceTarget = "/api/v3/simple/price?ids=bitcoin&vs_currencies=eur,usd";
inline constexpr auto fallbackTarget = "/v2/exchange-rates?currency=BTC";

/// A calendar of its own, so that no test depends on the day it runs on.
inline LocalServicesOptions startingIn2026() {
  using namespace std::chrono;
  return {.start = sys_days(year(2026) / 11 / 16) + hours(9)};
}

}  // namespace orvane::test
