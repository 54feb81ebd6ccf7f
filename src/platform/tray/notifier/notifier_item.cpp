#include "platform/tray/notifier/notifier_item.h"
#include <QByteArray>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QGuiApplication>
#include <QScreen>
#include <QtEndian>
#include <utility>

namespace orvane {
namespace {
/// What the item says about itself to those who introspect it.
constexpr auto introspection = R"xml(
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

/// One size of an icon, (iiay): ARGB32 in network byte order, not premultiplied.
struct Pixmap {
  int width = 0;
  int height = 0;
  QByteArray bytes;
};
using Pixmaps = QList<Pixmap>;

QDBusArgument& operator<<(QDBusArgument& argument, const Pixmap& pixmap) {
  argument.beginStructure();
  argument << pixmap.width << pixmap.height << pixmap.bytes;
  argument.endStructure();
  return argument;
}

/// Asked for by Qt; pixmaps are only sent.
const QDBusArgument& operator>>(const QDBusArgument& argument, Pixmap& /*pixmap*/) {
  return argument;  // NOLINT(bugprone-return-const-ref-from-parameter): as Qt asks for it
}

Pixmap pixmapOf(const QImage& image) {
  const auto pixels = image.convertToFormat(QImage::Format_ARGB32);
  const auto lineSize = static_cast<qsizetype>(pixels.width()) * 4;
  QByteArray bytes(lineSize * pixels.height(), Qt::Uninitialized);
  for (int line = 0; line < pixels.height(); ++line) {
    qToBigEndian<quint32>(pixels.constScanLine(line), pixels.width(),
                          bytes.data() + line * lineSize);
  }
  return {.width = pixels.width(), .height = pixels.height(), .bytes = bytes};
}

QVariant iconValue(const QList<QImage>& images) {
  Pixmaps pixmaps;
  for (const auto& image : images) {
    pixmaps.append(pixmapOf(image));
  }
  return QVariant::fromValue(pixmaps);
}

/// (sa(iiay)ss): icon name, icon, title, description.
QVariant toolTipValue(const QString& title) {
  QDBusArgument toolTip;
  toolTip.beginStructure();
  toolTip << QString() << Pixmaps() << title << QString();
  toolTip.endStructure();
  return QVariant::fromValue(toolTip);
}

/// A host's point, in the screen's own pixels, where Qt counts in larger ones.
QPoint fromScreenPixels(const QPoint& point) {
  for (const QScreen* const screen : QGuiApplication::screens()) {
    const QPoint origin = screen->geometry().topLeft();
    const QRect area(origin, screen->size() * screen->devicePixelRatio());
    if (area.contains(point)) { return origin + (point - origin) / screen->devicePixelRatio(); }
  }
  return point;
}
}  // namespace

NotifierItem::NotifierItem(SessionBus& bus, StatusRequests requests, NotifierState state)
    : connection_(bus.connection()),
      requests_(std::move(requests)),
      state_(std::move(state)),
      object_(connection_, QLatin1String(itemPath), surface()),
      watcher_(bus, QLatin1String(watcherName), [this](bool isThere) {
        if (isThere) { registerItem(); }
      }) {
  qDBusRegisterMetaType<Pixmap>();
  qDBusRegisterMetaType<Pixmaps>();
}

void NotifierItem::registerItem() {
  const auto watcher = watcher_.name();
  auto call = callWithoutStarting(watcher, QLatin1String(watcherPath), watcher,
                                  QStringLiteral("RegisterStatusNotifierItem"));
  call << connection_.baseService();
  connection_.call(call, QDBus::NoBlock);
}

void NotifierItem::setState(NotifierState state) {
  const auto old = std::exchange(state_, std::move(state));
  if (old.iconThemePath != state_.iconThemePath) {
    object_.sendSignal(QStringLiteral("NewIconThemePath"), {state_.iconThemePath});
  }
  if (old.iconName != state_.iconName || old.icons != state_.icons) { announceIcon(); }
  if (old.title != state_.title) { object_.sendSignal(QStringLiteral("NewTitle")); }
  if (old.toolTip != state_.toolTip) { object_.sendSignal(QStringLiteral("NewToolTip")); }
  if (old.label != state_.label) {
    const auto label = state_.label.value_or(QString());
    object_.sendSignal(QStringLiteral("XAyatanaNewLabel"), {label, label});
  }
}

void NotifierItem::announceIcon() { object_.sendSignal(QStringLiteral("NewIcon")); }

QVariantMap NotifierItem::properties() const {
  QVariantMap values{
      {QStringLiteral("Category"), QStringLiteral("ApplicationStatus")},
      {QStringLiteral("Id"), QStringLiteral("orvane")},
      {QStringLiteral("Title"), state_.title},
      {QStringLiteral("Status"), QStringLiteral("Active")},
      {QStringLiteral("IconName"), state_.iconName},
      {QStringLiteral("IconThemePath"), state_.iconThemePath},
      {QStringLiteral("IconPixmap"), iconValue(state_.icons)},
      {QStringLiteral("OverlayIconName"), QString()},
      {QStringLiteral("OverlayIconPixmap"), iconValue({})},
      {QStringLiteral("AttentionIconName"), QString()},
      {QStringLiteral("AttentionIconPixmap"), iconValue({})},
      {QStringLiteral("AttentionMovieName"), QString()},
      {QStringLiteral("ToolTip"), toolTipValue(state_.toolTip)},
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
          .introspection = QLatin1String(introspection),
          .methods = {{QStringLiteral("Activate"),
                       {QStringLiteral("ii"),
                        [this](const QVariantList&) {
                          requests_.click();
                          return QVariantList();
                        }}},
                      {QStringLiteral("ContextMenu"),
                       {QStringLiteral("ii"),
                        [this](const QVariantList& arguments) {
                          const QPoint place(arguments.at(0).toInt(), arguments.at(1).toInt());
                          requests_.popUpMenu(fromScreenPixels(place));
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
