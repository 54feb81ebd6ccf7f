#include "services/server/http_message.h"
#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <fmt/format.h>
#include "services/number_text.h"

namespace orvane::services {
namespace {
struct Reason {
  int status;
  std::string_view text;
};

constexpr std::array reasons{
    Reason{200, "OK"},
    Reason{204, "No Content"},
    Reason{302, "Found"},
    Reason{400, "Bad Request"},
    Reason{401, "Unauthorized"},
    Reason{403, "Forbidden"},
    Reason{404, "Not Found"},
    Reason{405, "Method Not Allowed"},
    Reason{429, "Too Many Requests"},
    Reason{500, "Internal Server Error"},
    Reason{503, "Service Unavailable"},
};

std::string_view reasonFor(int status) {
  const auto found = std::ranges::find(reasons, status, &Reason::status);
  return found == reasons.end() ? "Unnamed" : found->text;
}

char lowered(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                              : character;
}

bool equalInAnyCase(std::string_view left, std::string_view right) {
  return std::ranges::equal(left, right, {}, lowered, lowered);
}

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) { return {}; }
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// Takes one line off the front of `text`, without its line end.
std::string_view takeLine(std::string_view& text) {
  const auto end = std::min(text.find("\r\n"), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 2, text.size()));
  return line;
}

bool mayHaveBody(int status) { return status >= 200 && status != 204 && status != 304; }
}  // namespace

std::string_view Request::path() const {
  return std::string_view(target).substr(0, target.find('?'));
}

std::string_view Request::query() const {
  const auto mark = target.find('?');
  return mark == std::string::npos ? std::string_view() : std::string_view(target).substr(mark + 1);
}

const std::string* Request::header(std::string_view name) const {
  const auto found = std::ranges::find_if(
      headers, [name](const Header& header) { return equalInAnyCase(header.name, name); });
  return found == headers.end() ? nullptr : &found->value;
}

Response textResponse(int status, std::string text) {
  return {.status = status, .contentType = "text/plain", .body = std::move(text)};
}

std::optional<Request> parseRequestHead(std::string_view head) {
  const std::string_view line = takeLine(head);
  const auto first = line.find(' ');
  const auto last = line.rfind(' ');
  if (first == std::string_view::npos || first == 0 || last <= first + 1) { return std::nullopt; }
  if (!line.substr(last + 1).starts_with("HTTP/1.")) { return std::nullopt; }
  Request request;
  request.method = line.substr(0, first);
  request.target = line.substr(first + 1, last - first - 1);
  while (!head.empty()) {
    const std::string_view field = takeLine(head);
    const auto colon = field.find(':');
    if (colon == std::string_view::npos || colon == 0) { return std::nullopt; }
    request.headers.emplace_back(std::string(field.substr(0, colon)),
                                 std::string(trimmed(field.substr(colon + 1))));
  }
  return request;
}

std::optional<std::size_t> bodySize(const Request& request) {
  if (request.header("Transfer-Encoding") != nullptr) { return std::nullopt; }
  const std::string* const text = request.header("Content-Length");
  if (text == nullptr) { return 0; }
  return numberFrom<std::size_t>(*text);
}

bool wantsKeepAlive(const Request& request) {
  const std::string* const connection = request.header("Connection");
  return connection == nullptr || !equalInAnyCase(*connection, "close");
}

std::string responseHead(const Response& response, std::optional<std::size_t> contentLength,
                         bool keepAlive) {
  std::string head = fmt::format("HTTP/1.1 {} {}\r\n", response.status, reasonFor(response.status));
  for (const Header& header : response.headers) {
    fmt::format_to(std::back_inserter(head), "{}: {}\r\n", header.name, header.value);
  }
  if (mayHaveBody(response.status)) {
    fmt::format_to(std::back_inserter(head), "Content-Type: {}\r\n", response.contentType);
    if (contentLength) {
      fmt::format_to(std::back_inserter(head), "Content-Length: {}\r\n", *contentLength);
    }
  }
  fmt::format_to(std::back_inserter(head), "Connection: {}\r\n\r\n",
                 keepAlive ? "keep-alive" : "close");
  return head;
}
}  // namespace orvane::services
