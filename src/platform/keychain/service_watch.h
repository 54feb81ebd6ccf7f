#pragma once

#include <functional>
#include <utility>

#include <gio/gio.h>

#include "platform/async/task.h"
#include "platform/async/task_scope.h"

namespace orvane {

inline constexpr auto secretServiceName = "org.freedesktop.secrets";

/// Whether the session bus has a Secret Service, or can start one. Asking the service itself
/// would wait for the bus's time-out when there is none.
[[nodiscard]] Task<bool> secretServiceIsPresent();

/// Hears when the Secret Service, or the bus with it, goes away.
class ServiceWatch {
 public:
  explicit ServiceWatch(std::function<void()> whenGone);
  ServiceWatch(const ServiceWatch&) = delete;
  ServiceWatch& operator=(const ServiceWatch&) = delete;
  ~ServiceWatch();

 private:
  static void serviceGone(GDBusConnection* bus, const gchar* name, gpointer watch);

  std::function<void()> whenGone_;
  guint id_;
};

/// Runs `task` and cancels it when the service goes away: of a service that ends while it asks the
/// user, libsecret never says that the question is over.
template <class T>
Task<T> endingWithService(Task<T> task) {
  const TaskContext context = co_await currentContext();
  ChildTask<T> child(context, std::move(task));
  const ServiceWatch watch([&child] { child.cancel(); });
  T result = co_await child.result();
  co_return result;
}

}  // namespace orvane
