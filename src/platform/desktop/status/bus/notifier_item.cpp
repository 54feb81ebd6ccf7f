#include "platform/desktop/status/bus/notifier_item.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <utility>

#include "platform/desktop/status/bus/notifier_introspection.h"

namespace orvane {
namespace {

QString ownBusName() {
  return QStringLiteral("org.kde.StatusNotifierItem-%1-1").arg(QCoreApplication::applicationPid());
}

bool sameIcon(const NotifierState& a, const NotifierState& b) {
  return a.iconName == b.iconName && a.iconPixmaps == b.iconPixmaps;
}

}  // namespace

NotifierItem::NotifierItem(const QDBusConnection& connection, NotifierRequests requests,
                           NotifierState state)
    : connection_(connection),
      busName_(ownBusName()),
      requests_(std::move(requests)),
      state_(std::move(state)),
      object_(connection, QLatin1String(itemPath), surface()) {
  connection_.registerService(busName_);
  registration_.emplace(connection_, busName_);
}

NotifierItem::~NotifierItem() { connection_.unregisterService(busName_); }

void NotifierItem::setState(NotifierState state) {
  const auto old = std::exchange(state_, std::move(state));
  if (old.iconThemePath != state_.iconThemePath) {
    object_.sendSignal(QStringLiteral("NewIconThemePath"), {state_.iconThemePath});
  }
  if (!sameIcon(old, state_)) { object_.sendSignal(QStringLiteral("NewIcon")); }
  if (old.title != state_.title) { object_.sendSignal(QStringLiteral("NewTitle")); }
  if (old.toolTip != state_.toolTip) { object_.sendSignal(QStringLiteral("NewToolTip")); }
  if (old.label != state_.label) {
    const auto label = state_.label.value_or(QString());
    object_.sendSignal(QStringLiteral("XAyatanaNewLabel"), {label, label});
  }
}

QVariantMap NotifierItem::properties() const {
  const auto noPixmaps = QVariant::fromValue(NotifierPixmaps());
  QVariantMap values{
      {QStringLiteral("Category"), QStringLiteral("ApplicationStatus")},
      {QStringLiteral("Id"), QStringLiteral("orvane")},
      {QStringLiteral("Title"), state_.title},
      {QStringLiteral("Status"), QStringLiteral("Active")},
      {QStringLiteral("IconName"), state_.iconName},
      {QStringLiteral("IconThemePath"), state_.iconThemePath},
      {QStringLiteral("IconPixmap"), QVariant::fromValue(state_.iconPixmaps)},
      {QStringLiteral("OverlayIconName"), QString()},
      {QStringLiteral("OverlayIconPixmap"), noPixmaps},
      {QStringLiteral("AttentionIconName"), QString()},
      {QStringLiteral("AttentionIconPixmap"), noPixmaps},
      {QStringLiteral("AttentionMovieName"), QString()},
      {QStringLiteral("ToolTip"), QVariant::fromValue(state_.toolTip)},
      {QStringLiteral("WindowId"), 0},
      {QStringLiteral("ItemIsMenu"), false},
      {QStringLiteral("Menu"), QVariant::fromValue(QDBusObjectPath(QLatin1String(menuPath)))}};
  if (state_.label) {
    values.insert(QStringLiteral("XAyatanaLabel"), *state_.label);
    values.insert(QStringLiteral("XAyatanaLabelGuide"), *state_.label);
    values.insert(QStringLiteral("XAyatanaOrderingIndex"), 0U);
  }
  return values;
}

ObjectSurface NotifierItem::surface() {
  // A middle click and the wheel have no meaning here; hosts that send them get their reply.
  const auto nothing = [](const QVariantList&) { return QVariantList(); };
  return {.interface = QStringLiteral("org.kde.StatusNotifierItem"),
          .introspection = QLatin1String(notifierIntrospection),
          .methods = {{QStringLiteral("Activate"),
                       {QStringLiteral("ii"),
                        [this](const QVariantList&) {
                          requests_.activate();
                          return QVariantList();
                        }}},
                      {QStringLiteral("ContextMenu"),
                       {QStringLiteral("ii"),
                        [this](const QVariantList& arguments) {
                          requests_.contextMenu(arguments.at(0).toInt(), arguments.at(1).toInt());
                          return QVariantList();
                        }}},
                      {QStringLiteral("ProvideXdgActivationToken"),
                       {QStringLiteral("s"),
                        [this](const QVariantList& arguments) {
                          requests_.activationToken(arguments.at(0).toString().toStdString());
                          return QVariantList();
                        }}},
                      {QStringLiteral("SecondaryActivate"), {QStringLiteral("ii"), nothing}},
                      {QStringLiteral("XAyatanaSecondaryActivate"), {QStringLiteral("u"), nothing}},
                      {QStringLiteral("Scroll"), {QStringLiteral("is"), nothing}}},
          .properties = [this] { return properties(); }};
}

}  // namespace orvane
