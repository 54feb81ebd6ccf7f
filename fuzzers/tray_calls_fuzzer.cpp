// What anybody on the session bus may send to the status item and its menu: calls of their methods
// and of others, with the arguments that these take and with others. Each gets an answer, and the
// user's rows run only for a click.

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <array>
#include "bus_session.h"
#include "platform/tray/notifier/menu_export.h"
#include "platform/tray/notifier/notifier_item.h"

namespace orvane {
namespace {
/// One event of com.canonical.dbusmenu's EventGroup, (isvu).
struct MenuEvent {
  int id = 0;
  QString name;
  QDBusVariant data;
  uint timestamp = 0;
};

QDBusArgument& operator<<(QDBusArgument& argument, const MenuEvent& event) {
  argument.beginStructure();
  argument << event.id << event.name << event.data << event.timestamp;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, MenuEvent& /*event*/) {
  return argument;  // NOLINT(bugprone-return-const-ref-from-parameter): as Qt asks for it
}

/// The arguments that hide in an input.
class Arguments {
 public:
  explicit Arguments(std::string_view input) : rest_(input) {}

  [[nodiscard]] bool isEmpty() const { return rest_.empty(); }
  /// How many clicks have been among the values.
  [[nodiscard]] int clicks() const { return clicks_; }

  unsigned char byte() {
    const char taken = rest_.empty() ? '\0' : rest_.front();
    rest_.remove_prefix(rest_.empty() ? 0 : 1);
    return static_cast<unsigned char>(taken);
  }
  /// Mostly small, sometimes of any size: the rows have small numbers.
  int number() {
    const int small = byte() - 128;
    return small > 100 ? small * 16777216 : small;
  }
  QString text() { return QString::fromUtf8(takeLine(rest_)); }
  QStringList texts() {
    QStringList list;
    for (int count = byte() % 4; count > 0; --count) {
      list.append(text());
    }
    return list;
  }
  QList<int> numbers() {
    QList<int> list;
    for (int count = byte() % 8; count > 0; --count) {
      list.append(number());
    }
    return list;
  }
  QString eventName() {
    static const std::array names{"clicked", "opened", "closed", "hovered"};
    const std::size_t which = byte() % (names.size() + 1);
    const QString name = which < names.size() ? QString::fromLatin1(names.at(which)) : text();
    clicks_ += name == QLatin1String(names.front()) ? 1 : 0;
    return name;
  }
  QList<MenuEvent> events() {
    QList<MenuEvent> list;
    for (int count = byte() % 4; count > 0; --count) {
      list.append({.id = number(), .name = eventName(), .data = data(), .timestamp = byte()});
    }
    return list;
  }
  QDBusVariant data() { return QDBusVariant(byte() % 2 == 0 ? QVariant(number()) : text()); }

  /// A value of the type that `code` stands for.
  QVariant value(char code) {
    switch (code) {
      case 'i':
        return number();
      case 'u':
        return static_cast<uint>(number());
      case 's':
        return text();
      case 'v':
        return QVariant::fromValue(data());
      case 'S':
        return texts();
      case 'I':
        return QVariant::fromValue(numbers());
      case 'E':
        return QVariant::fromValue(events());
      case 'n':
        return eventName();
      default:
        return QVariantMap{{text(), number()}};
    }
  }

 private:
  std::string_view rest_;
  int clicks_ = 0;
};

struct Method {
  const char* path;
  const char* interface;
  const char* name;
  const char* arguments;  ///< codes of `Arguments::value`
};

constexpr auto itemInterface = "org.kde.StatusNotifierItem";
constexpr auto menuInterface = "com.canonical.dbusmenu";
constexpr auto propertiesInterface = "org.freedesktop.DBus.Properties";

constexpr std::array<Method, 17> methods{{
    {NotifierItem::itemPath, itemInterface, "Activate", "ii"},
    {NotifierItem::itemPath, itemInterface, "ContextMenu", "ii"},
    {NotifierItem::itemPath, itemInterface, "Scroll", "is"},
    {NotifierItem::itemPath, itemInterface, "SecondaryActivate", "ii"},
    {NotifierItem::itemPath, itemInterface, "ProvideXdgActivationToken", "s"},
    {NotifierItem::itemPath, propertiesInterface, "GetAll", "s"},
    {NotifierItem::itemPath, propertiesInterface, "Get", "ss"},
    {NotifierItem::itemPath, propertiesInterface, "Set", "ssv"},
    {NotifierItem::menuPath, menuInterface, "GetLayout", "iiS"},
    {NotifierItem::menuPath, menuInterface, "GetGroupProperties", "IS"},
    {NotifierItem::menuPath, menuInterface, "GetProperty", "is"},
    {NotifierItem::menuPath, menuInterface, "Event", "invu"},
    {NotifierItem::menuPath, menuInterface, "EventGroup", "E"},
    {NotifierItem::menuPath, menuInterface, "AboutToShow", "i"},
    {NotifierItem::menuPath, menuInterface, "AboutToShowGroup", "I"},
    {NotifierItem::menuPath, propertiesInterface, "GetAll", "s"},
    {NotifierItem::menuPath, "org.freedesktop.DBus.Introspectable", "Introspect", ""},
}};

/// The item and its menu, as the program has them on the bus.
class TrayOnBus {
 public:
  TrayOnBus() {
    qDBusRegisterMetaType<MenuEvent>();
    qDBusRegisterMetaType<QList<MenuEvent>>();
  }

  void call(Arguments& arguments) {
    const unsigned char choice = arguments.byte();
    const Method& method = methods.at(choice % methods.size());
    const bool isAsMeant = choice < 8 * methods.size();
    QDBusMessage message = QDBusMessage::createMethodCall(
        session_.bus().connection().baseService(), QLatin1String(method.path),
        QLatin1String(method.interface), QLatin1String(method.name));
    const std::string_view codes = isAsMeant ? method.arguments : anyCodes(arguments);
    for (const char code : codes) {
      message << arguments.value(code);
    }
    const QDBusPendingCall pending = session_.stranger().asyncCall(message);
    session_.letPassUntil([&pending] { return pending.isFinished(); });
    require(pending.reply().errorName() != QStringLiteral("org.freedesktop.DBus.Error.NoReply"));
  }

  void changeMenu(unsigned char rows) {
    QCoreApplication::processEvents();  // a row that was clicked is run before it changes
    menu_.items.clear();
    for (int row = 0; row < rows % 6; ++row) {
      menu_.items.push_back({.title = "Row " + std::to_string(rows / 6 + row),
                             .enabled = row != 0,
                             .action = [this] { ++chosen_; }});
    }
    exported_.contentMayHaveChanged();
  }

  [[nodiscard]] int chosen() const { return chosen_; }

 private:
  static std::string_view anyCodes(Arguments& arguments) {
    static const std::array codes{"", "s", "iiii", "a", "vvv", "SI", "E", "Eu"};
    return codes.at(arguments.byte() % codes.size());
  }

  BusSession session_;
  Menu menu_;
  int chosen_ = 0;
  NotifierItem item_{session_.bus(),
                     {.click = [] {},
                      .menu = [this] { return menu_; },
                      .popUpMenu = [](const QPoint&) {},
                      .activationToken = [](const std::string&) {}},
                     NotifierState()};
  MenuExport exported_{session_.bus().connection(), QLatin1String(NotifierItem::menuPath),
                       session_.executor(), [this] { return menu_; }};
};
}  // namespace

void tryInput(std::string_view input) {
  static TrayOnBus tray;
  Arguments arguments(input);
  const int chosenBefore = tray.chosen();
  for (int calls = 0; calls < 20 && !arguments.isEmpty(); ++calls) {
    tray.changeMenu(arguments.byte());
    tray.call(arguments);
  }
  require(tray.chosen() - chosenBefore <= arguments.clicks());
}
}  // namespace orvane
