#pragma once

#include <string>

#include "platform/eventloop/real_time.h"
#include "platform/http/odd_server.h"
#include "platform/http/qt_http_transport.h"
#include "services/local_services.h"

namespace orvane::test {

using services::Fault;
using services::FaultKind;
using services::LocalServices;
using services::LoggedRequest;
using services::Service;

inline constexpr auto profileTarget = "/accounts/profile/json/btc/";

/// The real transport in front of the local services.
class TransportTest : public RealTimeTest {
 protected:
  [[nodiscard]] HttpRequest tipRequest() const {
    return {.url = "https://" + local.host(Service::explorer) + "/api/blocks/tip/height",
            .idleTimeout = std::chrono::seconds(20)};
  }
  [[nodiscard]] HttpRequest profileRequest() const {
    return {.url = "https://" + local.host(Service::pool) + profileTarget,
            .headers = {{"Pool-Auth-Token", std::string(services::sampleToken)}},
            .idleTimeout = std::chrono::seconds(20)};
  }

  HttpResult get(HttpRequest request) { return run(transport.get(std::move(request))); }
  HttpResult getFrom(const OddServer& server) {
    QtHttpTransport odd({.extraCaFile = server.caFile()});
    return run(odd.get({.url = server.origin(), .idleTimeout = std::chrono::seconds(20)}));
  }

  LocalServices local;
  QtHttpTransport transport{{.extraCaFile = local.caFile()}};
};

}  // namespace orvane::test
