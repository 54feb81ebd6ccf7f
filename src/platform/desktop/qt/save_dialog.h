#pragma once

#include <QObject>
#include <QString>
#include <QWidget>
#include <functional>
#include <map>
#include "platform/bus/session_bus.h"

namespace orvane {
/// The desktop's dialog for saving a file: the portal's where there is one, else Qt's.
class SaveDialog final : public QObject {
 public:
  using Use = std::function<void(const QString& path)>;

  explicit SaveDialog(SessionBus& bus);

  /// Opens the dialog over the window of `over`, with `fileName` as a proposal, and returns. Calls
  /// `use` with the path that the user chooses; not at all when there is none.
  void ask(QWidget& over, const QString& fileName, Use use);

 private:
  void hear(const QDBusMessage& response);

  SessionBus& bus_;
  std::map<QString, Use> asked_;  ///< by the path of the portal's request
  int lastRequest_ = 0;
  BusSignal response_;
};
}  // namespace orvane
