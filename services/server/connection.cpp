#include "services/server/connection.h"
#include <algorithm>
#include <array>
#include <cerrno>
#include <openssl/err.h>
#include <poll.h>
#include <sys/socket.h>

namespace orvane::services {
namespace {
constexpr std::size_t headLimit = 65'536;
constexpr std::size_t bodyLimit = 1'048'576;
constexpr std::string_view headEnd = "\r\n\r\n";

/// Whether the peer closed, or the socket was shut down here, within the time; negative: forever.
bool endsWithin(int socket, std::chrono::milliseconds duration) {
  pollfd entry{.fd = socket, .events = POLLRDHUP, .revents = 0};
  const auto deadline = std::chrono::steady_clock::now() + duration;
  const bool forever = duration < std::chrono::milliseconds::zero();
  while (true) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    const int timeout = forever ? -1 : static_cast<int>(std::max<long>(left.count(), 0));
    const int outcome = ::poll(&entry, 1, timeout);
    if (outcome >= 0 || errno != EINTR) { return outcome != 0; }
  }
}
}  // namespace

bool Connection::shakeHands() {
  if (tls_ == nullptr || session_ != nullptr) { return true; }
  TlsSession session(SSL_new(tls_));
  ERR_clear_error();
  if (session == nullptr || SSL_set_fd(session.get(), socket_.get()) != 1 ||
      SSL_accept(session.get()) != 1) {
    return false;
  }
  session_ = std::move(session);
  return true;
}

/// How many bytes were read; 0 when the client has finished or is gone.
std::size_t Connection::read(std::span<char> buffer) const {
  if (session_ != nullptr) {
    std::size_t count = 0;
    ERR_clear_error();
    return SSL_read_ex(session_.get(), buffer.data(), buffer.size(), &count) == 1 ? count : 0;
  }
  while (true) {
    const ssize_t count = ::recv(socket_.get(), buffer.data(), buffer.size(), 0);
    if (count >= 0) { return static_cast<std::size_t>(count); }
    if (errno != EINTR) { return 0; }
  }
}

bool Connection::write(std::string_view bytes) {
  if (session_ != nullptr && !bytes.empty()) {
    std::size_t count = 0;
    ERR_clear_error();
    return SSL_write_ex(session_.get(), bytes.data(), bytes.size(), &count) == 1;
  }
  while (!bytes.empty()) {
    const ssize_t count = ::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count < 0 && errno != EINTR) { return false; }
    if (count > 0) { bytes.remove_prefix(static_cast<std::size_t>(count)); }
  }
  return true;
}

bool Connection::readMore() {
  std::array<char, 4096> buffer;
  const std::size_t count = read(buffer);
  received_.append(buffer.data(), count);
  return count > 0;
}

std::optional<std::string> Connection::takeHead() {
  std::size_t end = received_.find(headEnd);
  while (end == std::string::npos) {
    if (received_.size() > headLimit || !readMore()) { return std::nullopt; }
    end = received_.find(headEnd);
  }
  std::string head = received_.substr(0, end);
  received_.erase(0, end + headEnd.size());
  return head;
}

std::optional<Request> Connection::receive() {
  if (!shakeHands()) { return std::nullopt; }
  const std::optional<std::string> head = takeHead();
  if (!head) { return std::nullopt; }
  std::optional<Request> request = parseRequestHead(*head);
  if (!request) { return std::nullopt; }
  const std::optional<std::size_t> size = bodySize(*request);
  if (!size || *size > bodyLimit) { return std::nullopt; }
  while (received_.size() < *size) {
    if (!readMore()) { return std::nullopt; }
  }
  request->body = received_.substr(0, *size);
  received_.erase(0, *size);
  return request;
}

bool Connection::send(const Response& response, bool keepAlive) {
  return write(responseHead(response, response.body.size(), keepAlive) + response.body);
}

bool Connection::pause(std::chrono::milliseconds duration) const {
  return !endsWithin(socket_.get(), duration);
}

void Connection::waitUntilGone() const { endsWithin(socket_.get(), std::chrono::milliseconds(-1)); }

void Connection::finish() {
  if (session_ != nullptr) {
    ERR_clear_error();
    SSL_shutdown(session_.get());
  }
  cut();
}

void Connection::cut() const { ::shutdown(socket_.get(), SHUT_RDWR); }
}  // namespace orvane::services
