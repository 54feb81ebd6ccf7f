#include "services/local_services.h"

#include <fstream>
#include <utility>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "services/api/control_api.h"
#include "services/api/explorer_api.h"
#include "services/api/pool_api.h"
#include "services/api/price_api.h"
#include "services/server/certificate_authority.h"

namespace orvane::services {
namespace {

void writeFile(const std::filesystem::path& path, std::string_view text) {
  std::ofstream file;
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.open(path, std::ios::trunc);
  file << text;
  file.close();
}

std::string localhost(std::uint16_t port) { return fmt::format("localhost:{}", port); }

}  // namespace

LocalServices::LocalServices(LocalServicesOptions options)
    : options_(std::move(options)),
      directory_(options_.directory),
      scenario_(options_.start, options_.speed,
                {.address = options_.address,
                 .paymentAfter = options_.paymentAfter,
                 .rewardAfter = options_.rewardAfter}),
      log_(directory_.path() / "requests.log") {
  const CertificateAuthority authority;
  writeFile(caFile(), authority.certificatePem());
  start(Service::other, authority);  // first: the others' redirects point at it
  for (const Service service : allServices) {
    if (service != Service::other) { start(service, authority); }
  }
  control_ = std::make_unique<HttpServer>(
      options_.controlPort, nullptr, [this](const Request& request, Connection& connection) {
        const bool keepAlive = wantsKeepAlive(request);
        if (!connection.send(controlAnswer(request, *this), keepAlive)) { return Outcome::cut; }
        return keepAlive ? Outcome::keep : Outcome::finish;
      });
  writeFile(directory_.path() / "ports.json", description() + "\n");
}

LocalServices::~LocalServices() {
  control_.reset();  // first: its requests open and close the others
}

void LocalServices::start(Service service, const CertificateAuthority& authority) {
  const auto& other = endpoints_[indexOf(Service::other)];
  endpoints_[indexOf(service)] = std::make_unique<ServiceEndpoint>(
      service, options_.ports[indexOf(service)], authority.makeServerContext(),
      [this, service](const Request& request) { return answer(service, request); },
      ServiceEndpoint::Surroundings{
          .faults = faults_, .log = log_, .elsewhere = other ? localhost(other->port()) : ""});
}

Response LocalServices::answer(Service service, const Request& request) {
  switch (service) {
    case Service::pool:
      return poolAnswer(request, scenario_.now(), options_.token);
    case Service::explorer:
      return scenario_.withChain(
          [&](const Chain& chain) { return explorerAnswer(request, chain); });
    case Service::price:
      return priceAnswer(request, scenario_.now());
    case Service::fallback:
      return fallbackPriceAnswer(request, scenario_.now());
    case Service::other:
      return answerAsAnyone(request);
  }
  return textResponse(404, "There is nothing here");
}

/// What an attacker would do: take every request for his own and answer it plausibly.
Response LocalServices::answerAsAnyone(const Request& request) {
  Response response = poolAnswer(request, scenario_.now(), std::nullopt);
  for (const Service service : {Service::explorer, Service::price, Service::fallback}) {
    if (response.status != 404) { break; }
    response = answer(service, request);
  }
  return response;
}

std::string LocalServices::host(Service service) const {
  return localhost(endpoints_[indexOf(service)]->port());
}

std::string LocalServices::controlHost() const { return localhost(control_->port()); }

std::filesystem::path LocalServices::caFile() const { return directory_.path() / "ca.pem"; }

std::string LocalServices::description() const {
  nlohmann::ordered_json json;
  for (const Service service : allServices) {
    json[std::string(serviceName(service))] = endpoints_[indexOf(service)]->port();
  }
  json["control"] = control_->port();
  json["directory"] = std::filesystem::absolute(directory_.path()).string();
  json["ca"] = std::filesystem::absolute(caFile()).string();
  json["token"] = options_.token;
  json["address"] = options_.address;
  return json.dump();
}

void LocalServices::fault(Fault fault) {
  if (fault.kind == FaultKind::refuse) {
    endpoints_[indexOf(fault.service)]->refuse();
  } else {
    faults_.add(std::move(fault));
  }
}

void LocalServices::clearFaults() {
  faults_.clear();
  for (const auto& endpoint : endpoints_) {
    endpoint->accept();
  }
}

std::vector<LoggedRequest> LocalServices::requests(Service service) const {
  std::vector<LoggedRequest> found = log_.entries();
  std::erase_if(found, [service](const LoggedRequest& entry) { return entry.service != service; });
  return found;
}

const std::string& LocalServices::addressOrSample(const std::string& address) const {
  return address.empty() ? options_.address : address;
}

void LocalServices::pay(std::int64_t sats, const std::string& address) {
  scenario_.withChain([&](Chain& chain) { chain.pay(addressOrSample(address), sats); });
}

void LocalServices::payBlockReward(std::int64_t sats, const std::string& address) {
  scenario_.withChain([&](Chain& chain) { chain.reward(addressOrSample(address), sats); });
}

void LocalServices::mineBlock() {
  scenario_.withChain([](Chain& chain) { chain.mineBlock(); });
}

}  // namespace orvane::services
