#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <chrono>
#include <functional>
#include <string>
#include "platform/bus/session_bus.h"

namespace orvane {
/// What other programs ask of the running application.
struct ApplicationRequests {
  /// Show yourself. The token permits to take the focus; empty: none was given.
  std::function<void(const std::string& activationToken)> activate;
  /// Carry out a command by its name, for example "show-help"; unknown names are ignored.
  std::function<void(const std::string& name, const std::string& activationToken)> runAction;
};

/// Whether this process is the session's one instance of the application.
enum class InstanceRole {
  first,        ///< it is, and hears requests from now on
  handedOver,   ///< another one runs, and has been asked to show itself
  unreachable,  ///< another one runs and does not answer
  alone,        ///< no session bus: nobody can ask, and nobody can be asked
};

/// What a launcher gave this process for its window to take the focus, on X11 a startup id. To be
/// read before the QApplication is made, which takes it away; empty: none was given.
[[nodiscard]] QString activationTokenOfStart();

/// Makes the application one of its kind on the session bus, under the name `applicationId`, where
/// launchers and second starts talk to it by the interface org.freedesktop.Application. A bus that
/// was lost and comes back gets the name again.
class SessionInstance final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  /// `applicationId`: "com.example.Name"; its object is "/com/example/Name". `patience`: how long
  /// another instance, which may be busy, is given for its answer. The bus outlives this.
  SessionInstance(SessionBus& bus, const QString& applicationId,
                  std::chrono::milliseconds patience = std::chrono::seconds(3));
  ~SessionInstance() override;

  /// Takes the name, or asks its owner to show itself, with the permission that was meant for this
  /// process. Waits for the bus at most half a second; called before there is a window.
  [[nodiscard]] InstanceRole claim(const QString& activationToken);
  /// Gives the name up, so that a start from now on brings a new instance. Does not wait.
  void release();

  /// Requests that came earlier are answered in the event loop, so none is lost when this follows
  /// `claim` directly.
  void setRequests(ApplicationRequests requests);
  /// Carries out, now, the requests that were made before the name was claimed: one of them may be
  /// why the bus has started this process. For after `setRequests`, while no window is up.
  void answerEarlyRequests();

 public Q_SLOTS:
  // The methods on the bus; their names are the interface's.
  void Activate(const QVariantMap& platformData);
  void Open(const QStringList& uris, const QVariantMap& platformData);
  void ActivateAction(const QString& name, const QVariantList& parameters,
                      const QVariantMap& platformData);

 private:
  void exportObject();
  void unexportObject();
  void claimAgain();
  [[nodiscard]] bool activateOther(const QString& activationToken) const;

  SessionBus& bus_;
  QString id_;
  QString path_;
  std::chrono::milliseconds patience_;
  ApplicationRequests requests_;
  Registration busObserver_;
};
}  // namespace orvane
