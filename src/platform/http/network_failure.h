#pragma once

#include <QNetworkReply>
#include <optional>

#include "platform/http/http_transport.h"

namespace orvane {

/// What the end of a reply means: a failure of the exchange, or nothing when `status` stands for
/// a whole answer. Qt reports statuses as errors too, and an answer that broke off with the status
/// it began with; so the error decides unless it only repeats the status.
[[nodiscard]] std::optional<HttpFailure> exchangeFailure(QNetworkReply::NetworkError error,
                                                         int status);

}  // namespace orvane
