#include "platform/tray/notifier/notifier_item.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QtEndian>
#include <utility>

namespace orvane {

/// What the StatusNotifierItem says about itself to those who introspect it.
inline constexpr const char* notifierIntrospection = R"xml(
  <property name="Category" type="s" access="read"/>
  <property name="Id" type="s" access="read"/>
  <property name="Title" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="WindowId" type="i" access="read"/>
  <property name="IconName" type="s" access="read"/>
  <property name="IconThemePath" type="s" access="read"/>
  <property name="IconPixmap" type="a(iiay)" access="read"/>
  <property name="OverlayIconName" type="s" access="read"/>
  <property name="OverlayIconPixmap" type="a(iiay)" access="read"/>
  <property name="AttentionIconName" type="s" access="read"/>
  <property name="AttentionIconPixmap" type="a(iiay)" access="read"/>
  <property name="AttentionMovieName" type="s" access="read"/>
  <property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
  <property name="ItemIsMenu" type="b" access="read"/>
  <property name="Menu" type="o" access="read"/>
  <property name="XAyatanaLabel" type="s" access="read"/>
  <property name="XAyatanaLabelGuide" type="s" access="read"/>
  <property name="XAyatanaOrderingIndex" type="u" access="read"/>
  <method name="Activate">
    <arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/>
  </method>
  <method name="SecondaryActivate">
    <arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/>
  </method>
  <method name="ContextMenu">
    <arg name="x" type="i" direction="in"/><arg name="y" type="i" direction="in"/>
  </method>
  <method name="Scroll">
    <arg name="delta" type="i" direction="in"/><arg name="orientation" type="s" direction="in"/>
  </method>
  <method name="XAyatanaSecondaryActivate"><arg name="time" type="u" direction="in"/></method>
  <method name="ProvideXdgActivationToken"><arg name="token" type="s" direction="in"/></method>
  <signal name="NewTitle"/>
  <signal name="NewIcon"/>
  <signal name="NewAttentionIcon"/>
  <signal name="NewOverlayIcon"/>
  <signal name="NewToolTip"/>
  <signal name="NewStatus"><arg name="status" type="s"/></signal>
  <signal name="NewIconThemePath"><arg name="path" type="s"/></signal>
  <signal name="XAyatanaNewLabel">
    <arg name="label" type="s"/><arg name="guide" type="s"/>
  </signal>
)xml";

NotifierPixmap notifierPixmap(const QImage& image) {
  const auto pixels = image.convertToFormat(QImage::Format_ARGB32);
  NotifierPixmap pixmap{.width = pixels.width(), .height = pixels.height(), .bytes = {}};
  const auto lineSize = static_cast<qsizetype>(pixels.width()) * 4;
  pixmap.bytes.resize(lineSize * pixels.height());
  for (int line = 0; line < pixels.height(); ++line) {
    qToBigEndian<quint32>(pixels.constScanLine(line), pixels.width(),
                          pixmap.bytes.data() + line * lineSize);
  }
  return pixmap;
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap) {
  argument.beginStructure();
  argument << pixmap.width << pixmap.height << pixmap.bytes;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap) {
  argument.beginStructure();
  argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
  argument.endStructure();
  return argument;  // NOLINT(bugprone-return-const-ref-from-parameter): as Qt asks for it
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip) {
  argument.beginStructure();
  argument << toolTip.iconName << toolTip.icon << toolTip.title << toolTip.description;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip) {
  argument.beginStructure();
  argument >> toolTip.iconName >> toolTip.icon >> toolTip.title >> toolTip.description;
  argument.endStructure();
  return argument;  // NOLINT(bugprone-return-const-ref-from-parameter): as Qt asks for it
}

void registerNotifierTypes() {
  qDBusRegisterMetaType<NotifierPixmap>();
  qDBusRegisterMetaType<NotifierPixmaps>();
  qDBusRegisterMetaType<NotifierToolTip>();
}

namespace {

QString watcher() { return QLatin1String(WatcherRegistration::watcherName); }

}  // namespace

WatcherRegistration::WatcherRegistration(const QDBusConnection& connection, QString itemName)
    : connection_(connection),
      itemName_(std::move(itemName)),
      owners_(watcher(), connection, QDBusServiceWatcher::WatchForRegistration) {
  connect(&owners_, &QDBusServiceWatcher::serviceRegistered, this,
          &WatcherRegistration::registerItem);
  // After the subscription: a watcher that comes now is told twice rather than never. A call
  // without a watcher fails and changes nothing.
  registerItem();
}

void WatcherRegistration::registerItem() {
  auto call =
      QDBusMessage::createMethodCall(watcher(), QStringLiteral("/StatusNotifierWatcher"), watcher(),
                                     QStringLiteral("RegisterStatusNotifierItem"));
  call << itemName_;
  call.setAutoStartService(false);
  connection_.call(call, QDBus::NoBlock);
}

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
