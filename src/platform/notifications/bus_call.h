#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantList>
#include <chrono>
#include <optional>

#include "platform/async/task.h"

namespace orvane {

/// The values of a reply; nothing where there was none: an error, no bus, no answer within the
/// deadline, or the calling task was cancelled.
using BusReply = std::optional<QVariantList>;

/// Calls a method on the bus. The deadline includes the start of a service that the bus can start.
[[nodiscard]] Task<BusReply> callOnBus(QDBusConnection bus, QDBusMessage call,
                                       std::chrono::milliseconds deadline);

}  // namespace orvane
