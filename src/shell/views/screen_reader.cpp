#include "shell/views/screen_reader.h"
#include <QAccessibleObject>
#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QWidget>
#include <utility>
#include "shell/view_models/app_info.h"
#include "shell/views/qt_text.h"

namespace orvane {
// Screen readers are spoken to through AT-SPI. Announcements have an event of their own there that
// Qt sends from 6.8 on. With an older Qt a text is said by something else that readers speak of
// wherever the keyboard is: a notification that comes into sight. One stands in each window for
// this, of no size and unseen, with the text for its name.

namespace {
class SpokenApplication final : public QAccessibleApplication {
 public:
  [[nodiscard]] QString text(QAccessible::Text which) const override {
    return which == QAccessible::Name ? toQString(orvaneAppInfo().name)
                                      : QAccessibleApplication::text(which);
  }
};

class SpokenInterface final : public QAccessibleWidget {
 public:
  explicit SpokenInterface(QWidget& widget) : QAccessibleWidget(&widget) {}

  [[nodiscard]] QAccessible::Role role() const override { return words().role; }
  [[nodiscard]] QString text(QAccessible::Text which) const override {
    return which == QAccessible::Name ? words().name : QAccessibleWidget::text(which);
  }
  [[nodiscard]] QAccessible::State state() const override {
    auto state = QAccessibleWidget::state();
    if (words().isBusy) { state.busy = state.disabled = true; }
    return state;
  }
  [[nodiscard]] QStringList actionNames() const override {
    auto names = QAccessibleWidget::actionNames();
    if (words().canBePressed) { names.prepend(pressAction()); }
    return names;
  }
  void doAction(const QString& name) override {
    auto* const pressed = dynamic_cast<SpokenWidget*>(object());
    if (pressed && name == pressAction()) {
      pressed->pressSpoken();
    } else {
      QAccessibleWidget::doAction(name);
    }
  }

 private:
  [[nodiscard]] SpokenWords words() const {
    // A widget that is about to go may be a plain one already.
    const auto* const widget = dynamic_cast<const SpokenWidget*>(object());
    return widget ? widget->spokenWords() : SpokenWords();
  }
};

QAccessibleInterface* interfaceOfApplication(const QString& /*className*/, QObject* object) {
  return object == QCoreApplication::instance() ? new SpokenApplication : nullptr;
}

QAccessibleInterface* interfaceOfWidget(const QString& /*className*/, QObject* object) {
  return dynamic_cast<SpokenWidget*>(object) ? new SpokenInterface(static_cast<QWidget&>(*object))
                                             : nullptr;
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
void say(QWidget& from, const QString& text) {
  QAccessibleAnnouncementEvent event(&from, text);  // politely, unless told otherwise
  QAccessible::updateAccessibility(&event);
}
#else
const QString noticeName = QStringLiteral("screen reader notice");

class Notice final : public QWidget, public SpokenWidget {
 public:
  explicit Notice(QWidget* window) : QWidget(window) {
    setObjectName(noticeName);
    hide();
  }

  [[nodiscard]] SpokenWords spokenWords() const override {
    return {.role = QAccessible::Notification, .name = accessibleName()};
  }
};

void say(QWidget& from, const QString& text) {
  auto& window = *from.window();
  auto* notice = window.findChild<QWidget*>(noticeName, Qt::FindDirectChildrenOnly);
  if (!notice) { notice = new Notice(&window); }
  notice->setAccessibleName(text);
  QAccessibleEvent comesIntoSight(notice, QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&comesIntoSight);
}
#endif
}  // namespace

// Qt asks the factory installed last first, and its own one, which comes with the QApplication, has
// an answer for every widget.
SpokenWidget::SpokenWidget() { QAccessible::installFactory(&interfaceOfWidget); }

void nameApplicationForScreenReaders() { QAccessible::installFactory(&interfaceOfApplication); }

void announce(QWidget& from, std::string_view text) {
  if (QAccessible::isActive()) { say(from, toQString(text)); }
}

void FailureAnnouncer::notice(QWidget& from, std::string_view shown, bool isFailure) {
  const std::string failure(isFailure ? shown : std::string_view());
  if (failure == failure_) { return; }
  failure_ = failure;
  announce(from, shown);
}
}  // namespace orvane
