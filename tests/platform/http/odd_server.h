#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "services/server/certificate_authority.h"
#include "services/server/http_server.h"
#include "services/working_directory.h"

namespace orvane::test {

using services::Connection;
using services::Outcome;
using services::Request;

/// An HTTPS server that sends the bytes a test hands it, and remembers what it was asked.
class OddServer {
 public:
  using Answer = std::function<std::string(const Request&)>;

  explicit OddServer(Answer answer, Outcome afterwards = Outcome::keep)
      : answer_(std::move(answer)), afterwards_(afterwards) {
    std::ofstream(caFile()) << authority_.certificatePem();
  }

  [[nodiscard]] std::string caFile() const { return directory_.path() / "ca.pem"; }
  [[nodiscard]] std::string origin() const {
    return "https://localhost:" + std::to_string(server_.port());
  }
  [[nodiscard]] std::vector<Request> requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
  }

 private:
  Outcome handle(const Request& request, Connection& connection) {
    {
      const std::lock_guard lock(mutex_);
      requests_.push_back(request);
    }
    return connection.write(answer_(request)) ? afterwards_ : Outcome::cut;
  }

  Answer answer_;
  Outcome afterwards_;
  mutable std::mutex mutex_;
  std::vector<Request> requests_;
  services::WorkingDirectory directory_{{}};
  services::CertificateAuthority authority_;
  services::HttpServer server_{0, authority_.makeServerContext(),
                               [this](const Request& request, Connection& connection) {
                                 return handle(request, connection);
                               }};
};

}  // namespace orvane::test
