#pragma once

#include <QAccessible>
#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace orvane {
/// What a widget is to a screen reader.
struct SpokenWords {
  QAccessible::Role role = QAccessible::Client;
  QString name;
  bool isBusy = false;  ///< has the keyboard perhaps, and does nothing for the moment
  bool canBePressed = false;
};

/// A widget that says itself what it is to screen readers, where Qt's own words for it would not
/// do.
class SpokenWidget {
 public:
  SpokenWidget();
  SpokenWidget(const SpokenWidget&) = delete;
  SpokenWidget& operator=(const SpokenWidget&) = delete;
  virtual ~SpokenWidget() = default;

  [[nodiscard]] virtual SpokenWords spokenWords() const = 0;
  /// Does what a press does, for a screen reader; only where it can be pressed.
  virtual void pressSpoken() {}
};

/// Has screen readers call the application by its name; before the QApplication is made. Elsewhere
/// it goes by its id, after which desktops find its entry.
void nameApplicationForScreenReaders();

/// Has a screen reader say `text` when it has finished what it is saying, wherever the keyboard is.
/// `from`: the widget that shows the text.
void announce(QWidget& from, std::string_view text);

/// Announces a failure when it comes or becomes another one, and its end; not that it lasts.
class FailureAnnouncer {
 public:
  /// `shown` is what `from` shows: the failure, or what stands in its place.
  void notice(QWidget& from, std::string_view shown, bool isFailure);

 private:
  std::string failure_;  ///< announced and not over; empty: none
};
}  // namespace orvane
