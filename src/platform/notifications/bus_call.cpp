#include "platform/notifications/bus_call.h"

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <memory>
#include <utility>

#include "platform/async/completion.h"

namespace orvane {
namespace {

using Abort = CompletionAwaiter<BusReply>::Abort;

BusReply valuesOf(const QDBusMessage& reply) {
  const bool isReply = reply.type() == QDBusMessage::ReplyMessage;
  return isReply ? BusReply(reply.arguments()) : std::nullopt;
}

Abort send(const QDBusConnection& bus, const QDBusMessage& call, int deadline,
           const Completion<BusReply>& completion) {
  const QDBusPendingCall pending = bus.asyncCall(call, deadline);
  // Without a connection the call has already failed, and no watcher ever hears of it.
  if (pending.isFinished()) {
    completion.resolve(valuesOf(pending.reply()));
    return {};
  }
  const auto watcher = std::make_shared<QDBusPendingCallWatcher>(pending);
  QObject::connect(watcher.get(), &QDBusPendingCallWatcher::finished, watcher.get(),
                   [completion](QDBusPendingCallWatcher* ended) {
                     completion.resolve(valuesOf(ended->reply()));
                   });
  // The watcher lives as long as what waits for it.
  return [watcher] { watcher->disconnect(); };
}

}  // namespace

Task<BusReply> callOnBus(QDBusConnection bus, QDBusMessage call,
                         std::chrono::milliseconds deadline) {
  const int milliseconds = static_cast<int>(deadline.count());
  CompletionAwaiter<BusReply>::Start start =
      [bus, call, milliseconds](const Completion<BusReply>& completion) {
        return send(bus, call, milliseconds, completion);
      };
  BusReply reply = co_await untilResolved<BusReply>(std::move(start), std::nullopt);
  co_return reply;
}

}  // namespace orvane
