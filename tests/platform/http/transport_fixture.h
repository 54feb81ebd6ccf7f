#pragma once

#include <string>

#include "platform/eventloop/real_time.h"
#include "platform/http/qt_http_transport.h"
#include "services/local_services.h"

namespace orvane::test {

using services::Fault;
using services::FaultKind;
using services::LocalServices;
using services::LoggedRequest;
using services::Service;

inline constexpr auto tipTarget = "/api/blocks/tip/height";
inline constexpr auto profileTarget = "/accounts/profile/json/btc/";

/// The real transport in front of the local services.
class TransportTest : public RealTimeTest {
 protected:
  [[nodiscard]] HttpRequest tipRequest() const { return requestTo(Service::explorer, tipTarget); }
  [[nodiscard]] HttpRequest profileRequest() const {
    HttpRequest request = requestTo(Service::pool, profileTarget);
    request.headers = {{.name = "Pool-Auth-Token", .value = std::string(services::sampleToken)}};
    return request;
  }
  [[nodiscard]] HttpRequest requestTo(Service service, const std::string& target) const {
    return {.url = "https://" + local.host(service) + target,
            .idleTimeout = std::chrono::seconds(20)};
  }

  HttpResult get(HttpRequest request) { return run(transport.get(std::move(request))); }

  LocalServices local;
  QtHttpTransport transport{{.extraCaFile = local.caFile()}};
};

}  // namespace orvane::test
