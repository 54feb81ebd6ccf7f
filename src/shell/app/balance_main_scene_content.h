#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include "core/balance_store.h"
#include "platform/async/signal.h"
#include "platform/desktop/desktop_application.h"
#include "platform/text/locale_format.h"
#include "shell/app/balance_menu_actions.h"
#include "shell/app/scenes.h"
#include "shell/menu_bar/background_runtime.h"
#include "shell/views/balance_view.h"

namespace orvane {
/// What the main window's content is made of; all of it outlives the content.
struct BalanceMainScene {
  std::shared_ptr<BalanceStore> store;
  std::shared_ptr<BackgroundRuntime> backgroundRuntime;
  OpenWindow openWindow;
  std::shared_ptr<BalanceMenuActions> menuActions;
  const LocaleFormat& format;
  BroadcastCenter& broadcasts;
  DesktopApplication& application;
};

/// The content of the main window. When it is first shown, or told to, it connects the status item
/// with the store, and from then on every change of the store reaches both.
class BalanceMainSceneContent final : public QWidget {
  Q_OBJECT

 public:
  BalanceMainSceneContent(BalanceMainScene scene, const BalanceViewSettings& settings,
                          QWidget* parent = nullptr);

  /// Does so once, for an application that starts without showing its window.
  void connectStatusItem();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void updateMenuBarStatus();
  /// Opens a scene's window over the main window, which comes forward first.
  void openOverMainWindow(const std::string& id);

  BalanceMainScene scene_;
  bool isConnected_ = false;
  BalanceView* view_;
  Registration openWindowObserver_;
  Registration saveHistoryObserver_;
};
}  // namespace orvane
