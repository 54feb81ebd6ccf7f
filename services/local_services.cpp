#include "services/local_services.h"
#include <fstream>
#include <functional>
#include <utility>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include "services/api/answers.h"
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

bool isMoved(const Request& request) { return request.target.starts_with(movedPrefix); }
}  // namespace

/// One service on its port: answers, goes wrong where it was told to, and logs.
class LocalServices::Endpoint {
 public:
  /// The right answer to a request. Called from several threads at a time.
  using Answer = std::function<Response(const Request&)>;

  struct Surroundings {
    FaultBook& faults;
    RequestLog& log;
    std::string elsewhere;  ///< host and port that redirects point at
  };

  /// Throws std::system_error when the port is taken.
  Endpoint(Service service, std::uint16_t port, TlsContext tls, Answer answer,
           Surroundings surroundings)
      : service_(service),
        answer_(std::move(answer)),
        surroundings_(std::move(surroundings)),
        server_(port, std::move(tls), [this](const Request& request, Connection& connection) {
          return handle(request, connection);
        }) {}

  [[nodiscard]] std::uint16_t port() const { return server_.port(); }

  /// Closes the port, or opens it again.
  void refuse() { server_.close(); }
  void accept() { server_.open(); }

 private:
  [[nodiscard]] Outcome handle(const Request& request, Connection& connection) {
    Response response = rightAnswer(request);
    // Where a redirect led is beyond faults, or a redirect that hits every request would never end.
    const std::optional<Fault> fault =
        isMoved(request) ? std::nullopt : surroundings_.faults.take(service_, request.target);
    if (!fault) {
      surroundings_.log.add(service_, request, response.status, {});
      return sendAnswer(connection, request, response);
    }
    response = spoiled(std::move(response), request, *fault, surroundings_.elsewhere);
    surroundings_.log.add(service_, request, sendsStatus(fault->kind) ? response.status : 0,
                          std::string(faultName(fault->kind)));
    return sendFaulty(connection, request, response, *fault);
  }

  [[nodiscard]] Response rightAnswer(const Request& request) const {
    if (request.method != "GET") { return textResponse(405, "Only GET is answered here"); }
    if (!isMoved(request)) { return answer_(request); }
    Request original = request;
    original.target.erase(0, movedPrefix.size());
    return answer_(original);
  }

  Service service_;
  Answer answer_;
  Surroundings surroundings_;
  HttpServer server_;  ///< last: its threads use the members above
};

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
  start(Service::other, authority.makeServerContext());  // first: the redirects' destination
  for (const Service service : allServices) {
    if (service != Service::other) { start(service, authority.makeServerContext()); }
  }
  control_ = std::make_unique<HttpServer>(
      options_.controlPort, nullptr, [this](const Request& request, Connection& connection) {
        return sendAnswer(connection, request, controlAnswer(request, *this));
      });
  writeFile(directory_.path() / "ports.json", description() + "\n");
}

LocalServices::~LocalServices() {
  control_.reset();  // first: its requests open and close the others
}

void LocalServices::start(Service service, TlsContext tls) {
  const auto& other = endpoints_[indexOf(Service::other)];
  endpoints_[indexOf(service)] = std::make_unique<Endpoint>(
      service, options_.ports[indexOf(service)], std::move(tls),
      [this, service](const Request& request) { return answer(service, request); },
      Endpoint::Surroundings{
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
