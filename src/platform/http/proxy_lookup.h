#pragma once

#include <QList>
#include <QNetworkProxy>
#include <QUrl>
#include <expected>
#include <functional>
#include "platform/async/executor.h"
#include "platform/async/task.h"
#include "platform/http/http_transport.h"

namespace orvane {
/// In the order in which they are to be tried; "no proxy" is one of them.
using Proxies = QList<QNetworkProxy>;

/// Finds the proxies for a URL, on a thread that is not the main one, and takes its time.
using ProxyResolver = std::function<Proxies(const QUrl& url)>;

/// What the desktop and the environment say: fixed proxies, or a script that has to be fetched.
[[nodiscard]] Proxies systemProxies(const QUrl& url);

using ProxyResult = std::expected<Proxies, HttpFailure>;

/// Asks `resolver` while the main thread goes on: `timedOut` when it has not answered by `end`. A
/// resolver that nobody waits for any more runs on without consequence, and one that has not begun
/// is not called.
[[nodiscard]] Task<ProxyResult> findProxies(ProxyResolver resolver, QUrl url, Instant end);
/// Whether a resolver still runs. The library behind the system's waits for it when the process
/// destroys its static objects.
[[nodiscard]] bool isResolverAtWork();
}  // namespace orvane
