#pragma once

#include <optional>
#include <span>
#include "core/balance_platform.h"
#include "platform/async/task_scope.h"
#include "pool/worker_alerts.h"

namespace orvane {
/// Tells the user of workers that stop, slow down or recover, while this is switched on. What it
/// has told of is kept over the end of the program, so that nothing is told twice and a recovery
/// still is; what it knows of the other workers begins with each start.
class WorkerNotifications {
 public:
  /// Everything given outlives the object. `isOn`: it was, when the program last ran.
  WorkerNotifications(const BalancePlatform& platform, bool isOn);

  /// Switched on, it begins with `workers`, the last list there was, and tells only of what becomes
  /// of them.
  void setOn(bool isOn, std::span<const BraiinsWorkerStatus> workers);
  /// The workers of one more cycle.
  void noticeWorkers(std::span<const BraiinsWorkerStatus> workers);
  /// Another account: what follows are other workers.
  void forgetWorkers();

 private:
  void use(WatchedWorkers workers);
  [[nodiscard]] NotificationRequest makeNotificationRequest(WorkerMessage message) const;
  [[nodiscard]] std::string bodyOf(const WorkerAlert& alert) const;

  UserDefaults& defaults_;
  NotificationCenter& center_;
  const LocaleFormat& format_;
  std::optional<WatchedWorkers> workers_;  ///< nothing while switched off
  TaskScope posting_;
};
}  // namespace orvane
