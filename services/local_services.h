#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "services/fault.h"
#include "services/request_log.h"
#include "services/scenario/scenario.h"
#include "services/server/http_server.h"
#include "services/service.h"
#include "services/working_directory.h"

namespace orvane::services {
/// In the shape of a mainnet address, with a checksum that no wallet accepts.
inline constexpr std::string_view sampleAddress = "bc1qsampleaddressn0tarealwalletf0rthedem00";
inline constexpr std::string_view sampleToken = "demo-read-only-token";

struct LocalServicesOptions {
  /// Where ca.pem, ports.json and requests.log are written; empty: a temporary folder.
  std::filesystem::path directory = {};
  std::array<std::uint16_t, allServices.size()> ports = {};  ///< 0: the system chooses
  std::uint16_t controlPort = 0;
  std::string token{sampleToken};      ///< the one that the pool accepts
  std::string address{sampleAddress};  ///< the one that has a history
  double speed = 1;                    ///< seconds of the story in a second
  std::chrono::sys_seconds start =
      std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  std::optional<ScenarioSeconds> paymentAfter = {};  ///< one more payment to the address
  std::optional<ScenarioSeconds> rewardAfter = {};   ///< a block whose reward it gets
};

/// The pool, the explorer and both price sources on loopback, and an origin that nobody should
/// talk to, each in threads of its own from construction to destruction. Every operation may be
/// called from any thread and holds from the next request on.
class LocalServices {
 public:
  /// Throws std::system_error when a port is taken or the folder cannot be written, and
  /// std::runtime_error when OpenSSL refuses.
  explicit LocalServices(LocalServicesOptions options = {});
  ~LocalServices();
  LocalServices(const LocalServices&) = delete;
  LocalServices& operator=(const LocalServices&) = delete;

  /// "localhost:" and the port; HTTPS.
  [[nodiscard]] std::string host(Service service) const;
  /// The same for the control port; HTTP in clear.
  [[nodiscard]] std::string controlHost() const;
  /// The certificate authority to trust, PEM.
  [[nodiscard]] std::filesystem::path caFile() const;
  /// Where the folder, the hosts' ports and the sample account are, as one JSON line.
  [[nodiscard]] std::string description() const;

  void fault(Fault fault);
  /// Forgets all faults and opens the ports that were closed; throws std::system_error when one of
  /// them was taken meanwhile. Connections that are silent already stay so.
  void clearFaults();

  [[nodiscard]] std::vector<LoggedRequest> requests() const { return log_.entries(); }
  [[nodiscard]] std::vector<LoggedRequest> requests(Service service) const;

  [[nodiscard]] Moment now() const { return scenario_.now(); }
  void advance(ScenarioSeconds time) { scenario_.advance(time); }

  /// A payment that waits for the next block; to the sample address unless another is given.
  void pay(std::int64_t sats, const std::string& address = {});
  /// A block whose reward pays the address.
  void payBlockReward(std::int64_t sats, const std::string& address = {});
  void mineBlock();

 private:
  class Endpoint;

  void start(Service service, TlsContext tls);
  [[nodiscard]] Response answer(Service service, const Request& request);
  [[nodiscard]] Response answerAsAnyone(const Request& request);
  [[nodiscard]] const std::string& addressOrSample(const std::string& address) const;

  LocalServicesOptions options_;
  WorkingDirectory directory_;
  Scenario scenario_;
  FaultBook faults_;
  RequestLog log_;
  std::array<std::unique_ptr<Endpoint>, allServices.size()> endpoints_;
  std::unique_ptr<HttpServer> control_;
};
}  // namespace orvane::services
