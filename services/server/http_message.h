#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::services {
struct Header {
  std::string name;
  std::string value;
};

/// A request as it came: names, case, order and repetitions of the headers are the client's.
struct Request {
  std::string method;
  std::string target;  ///< path and query, as sent
  std::vector<Header> headers;
  std::string body;

  [[nodiscard]] std::string_view path() const;
  [[nodiscard]] std::string_view query() const;  ///< without the question mark; may be empty

  /// The first header of this name, in any case.
  [[nodiscard]] const std::string* header(std::string_view name) const;
};

struct Response {
  int status = 200;
  std::string contentType = "application/json";
  std::vector<Header> headers = {};
  std::string body = {};
};

[[nodiscard]] Response textResponse(int status, std::string text);

/// Request line and headers, without the empty line that ends them; none when they are malformed.
[[nodiscard]] std::optional<Request> parseRequestHead(std::string_view head);

/// How much body the request announces; none when it announces it in a way not known here.
[[nodiscard]] std::optional<std::size_t> bodySize(const Request& request);

/// Whether the client lets the connection serve another request.
[[nodiscard]] bool wantsKeepAlive(const Request& request);

/// Status line and headers with the empty line. A length that is absent means that the end of
/// the connection ends the body.
[[nodiscard]] std::string responseHead(const Response& response,
                                       std::optional<std::size_t> contentLength, bool keepAlive);
}  // namespace orvane::services
