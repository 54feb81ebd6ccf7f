#pragma once

#include <functional>
#include <string>

#include "services/faults/fault_book.h"
#include "services/request_log.h"
#include "services/server/certificate_authority.h"
#include "services/server/http_server.h"

namespace orvane::services {

/// The right answer to a request. Called from several threads at a time.
using Answer = std::function<Response(const Request&)>;

/// One service on its port: answers, goes wrong where it was told to, and logs.
class ServiceEndpoint {
 public:
  struct Surroundings {
    FaultBook& faults;
    RequestLog& log;
    std::string elsewhere;  ///< host and port that redirects point at
  };

  /// Throws std::system_error when the port is taken.
  ServiceEndpoint(Service service, std::uint16_t port, TlsContext tls, Answer answer,
                  Surroundings surroundings);

  [[nodiscard]] std::uint16_t port() const { return server_.port(); }

  /// Closes the port, or opens it again.
  void refuse() { server_.close(); }
  void accept() { server_.open(); }

 private:
  [[nodiscard]] Outcome handle(const Request& request, Connection& connection);
  [[nodiscard]] Response rightAnswer(const Request& request) const;

  Service service_;
  Answer answer_;
  Surroundings surroundings_;
  HttpServer server_;  ///< last: its threads use the members above
};

}  // namespace orvane::services
