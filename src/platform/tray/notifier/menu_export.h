#pragma once

#include <QDBusConnection>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>
#include "platform/async/executor.h"
#include "platform/bus/exported_object.h"
#include "platform/desktop/desktop_application.h"

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
  struct Row {
    int id;  ///< above zero, which stands for the menu as a whole
    MenuItem item;
  };

  /// Both give true when a host sees a difference.
  bool rebuild();
  bool takeRows(Menu menu);
  [[nodiscard]] const MenuItem* find(int id) const;
  [[nodiscard]] QVariantMap propertiesOf(int id, const QStringList& names) const;
  [[nodiscard]] QVariant layoutNode(int id, bool withChildren, const QStringList& names) const;
  [[nodiscard]] bool has(int id) const;
  void handleEvent(int id, const QString& name);

  // What hosts call: the arguments of the call, and the values of its reply.
  [[nodiscard]] ObjectSurface surface();
  QVariantList getLayout(const QVariantList& arguments);
  QVariantList getGroupProperties(const QVariantList& arguments);
  QVariantList getProperty(const QVariantList& arguments);
  QVariantList aboutToShow(const QVariantList& arguments);
  QVariantList aboutToShowGroup(const QVariantList& arguments);
  QVariantList event(const QVariantList& arguments);
  QVariantList eventGroup(const QVariantList& arguments);

  Executor& executor_;
  Source source_;
  std::vector<Row> rows_;
  int lastId_ = 0;
  std::uint32_t revision_ = 1;
  bool wasRead_ = false;
  ExportedObject object_;
};
}  // namespace orvane
