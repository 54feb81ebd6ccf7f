#pragma once

#include <QSslConfiguration>
#include <QUrl>
#include <expected>
#include <vector>
#include "platform/async/executor.h"
#include "platform/async/task.h"
#include "platform/http/http_transport.h"
#include "platform/http/proxy_lookup.h"
#include "platform/http/response_reader.h"

namespace orvane {
/// When an exchange is given up as `timedOut`.
struct TimeLimits {
  ExecutorClock::duration idle{};  ///< when nothing arrives for so long
  Instant end;                     ///< then, whatever arrives
};

/// A GET that may be sent: URL and headers have been looked at (`request_rules.h`).
struct ExchangeOrder {
  QUrl url;
  std::vector<HttpHeader> headers;
  Proxies proxies;
  QSslConfiguration tls;
  TimeLimits limits;
};

using ExchangeResult = std::expected<HttpAnswer, HttpFailure>;

/// One request, one answer, over a connection of its own that ends with it. Whatever happens, the
/// request is sent once at most.
[[nodiscard]] Task<ExchangeResult> exchange(ExchangeOrder order);
}  // namespace orvane
