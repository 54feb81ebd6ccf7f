#pragma once

#include <string>

#include <gtest/gtest.h>
#include <httplib.h>
#include <nlohmann/json.hpp>

#include "services/local_services.h"

namespace orvane::test {

using nlohmann::json;
using services::FaultKind;
using services::LocalServices;
using services::Service;

inline constexpr auto profileTarget = "/accounts/profile/json/btc/";
inline constexpr auto workersTarget = "/accounts/workers/json/btc/";
inline constexpr auto tipTarget = "/api/blocks/tip/height";
inline constexpr auto priceTarget = "/api/v3/simple/price?ids=bitcoin&vs_currencies=eur,usd";
inline const std::string sampleTarget = "/api/address/" + std::string(services::sampleAddress);

/// An HTTPS client that knows no certificate authority but the services' own.
inline httplib::Client clientOf(const LocalServices& services, Service service) {
  httplib::Client client("https://" + services.host(service));
  client.set_ca_cert_path(services.caFile());
  client.enable_server_certificate_verification(true);
  client.set_url_encode(false);  // targets hold to the character
  return client;
}

/// The services in a calendar of their own, so that no test depends on the day it runs on.
class ServicesTest : public ::testing::Test {
 protected:
  httplib::Result get(Service service, const std::string& target,
                      const std::string& token = std::string(services::sampleToken)) {
    return clientOf(services_, service).Get(target, {{"Pool-Auth-Token", token}});
  }
  /// The document that was answered; discarded where it is none.
  json at(Service service, const std::string& target) {
    const auto result = get(service, target);
    return json::parse(result ? result->body : "", nullptr, false);
  }

  LocalServices services_{{.start = std::chrono::sys_days(std::chrono::year(2026) / 11 / 16)}};
};

}  // namespace orvane::test
