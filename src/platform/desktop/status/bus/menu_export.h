#pragma once

#include <QDBusConnection>
#include <functional>
#include <optional>

#include "platform/async/executor.h"
#include "platform/desktop/menu.h"
#include "platform/desktop/status/bus/exported_object.h"
#include "platform/desktop/status/bus/menu_model.h"
#include "platform/desktop/status/bus/menu_types.h"

namespace orvane {

/// The item's menu on the session bus (com.canonical.dbusmenu). It is built afresh whenever a host
/// is about to show it. Actions run after the host has its reply.
class MenuExport final {
 public:
  /// Builds the menu; nothing when there is none now.
  using Source = std::function<std::optional<Menu>()>;

  MenuExport(const QDBusConnection& connection, const QString& path, Executor& executor,
             Source source);
  MenuExport(const MenuExport&) = delete;
  MenuExport& operator=(const MenuExport&) = delete;

  /// What the menu says may have changed. Hosts that read it before are told when it has: some
  /// never ask again before they show it.
  void contentMayHaveChanged();

 private:
  [[nodiscard]] ObjectSurface surface();
  bool rebuild();
  QVariantList layout(const QVariantList& arguments);
  QVariantList aboutToShow(const QVariantList& arguments);
  QVariantList aboutToShowGroup(const QVariantList& arguments);
  QVariantList eventGroup(const QVariantList& arguments);
  [[nodiscard]] QVariantList property(const QVariantList& arguments) const;
  bool handleEvent(int id, const QString& name);

  Executor& executor_;
  Source source_;
  MenuModel model_;
  bool wasRead_ = false;
  ExportedObject object_;
};

}  // namespace orvane
