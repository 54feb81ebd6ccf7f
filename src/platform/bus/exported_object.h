#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QVariantMap>
#include <functional>
#include <map>

namespace orvane {
/// The surface of a D-Bus object with one interface, as tables. It is written out rather than
/// generated because hosts ask for things that generated adaptors refuse: GetAll of a misspelt
/// interface is answered with an empty map here.
struct ObjectSurface {
  struct Method {
    QString signature;  ///< of the arguments; other calls are refused
    std::function<QVariantList(const QVariantList& arguments)> call;  ///< gives the reply's values
  };

  QString interface;
  QString introspection;  ///< the inside of the interface element
  std::map<QString, Method> methods;
  std::function<QVariantMap()> properties;  ///< all of them, as they are now
};

/// An object on the bus that answers by the tables of its surface. Main thread only.
class ExportedObject final : public QDBusVirtualObject {
  Q_OBJECT

 public:
  ExportedObject(QDBusConnection connection, QString path, ObjectSurface surface);
  ~ExportedObject() override;
  ExportedObject(const ExportedObject&) = delete;
  ExportedObject& operator=(const ExportedObject&) = delete;

  void sendSignal(const QString& name, const QVariantList& values = {});

  [[nodiscard]] QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

 private:
  [[nodiscard]] QDBusMessage answer(const QDBusMessage& call) const;
  [[nodiscard]] QDBusMessage answerProperties(const QDBusMessage& call) const;
  [[nodiscard]] QDBusMessage property(const QDBusMessage& call) const;
  [[nodiscard]] QDBusMessage allProperties(const QDBusMessage& call) const;

  QDBusConnection connection_;
  QString path_;
  ObjectSurface surface_;
};
}  // namespace orvane
