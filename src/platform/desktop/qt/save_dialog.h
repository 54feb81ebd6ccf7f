#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include "platform/bus/desktop_portal.h"

namespace orvane {
/// The desktop's dialog for saving a file: the portal's where there is one, else Qt's.
class SaveDialog {
 public:
  using Use = std::function<void(const QString& path)>;

  explicit SaveDialog(PortalRequests& portal) : portal_(portal) {}

  /// Opens the dialog over the window of `over`, with `fileName` as a proposal, and returns. Calls
  /// `use` with the path that the user chooses; not at all when there is none.
  void ask(QWidget& over, const QString& fileName, const Use& use);

 private:
  PortalRequests& portal_;
};
}  // namespace orvane
