#pragma once

#include <QLabel>
#include <string_view>

#include "shell/views/theme.h"

namespace orvane {

/// A text that opens a web page, by mouse and by keyboard; plain text without a page to open.
class LinkLabel final : public QLabel {
  Q_OBJECT

 public:
  LinkLabel(theme::TextStyle style, std::string_view text, std::string_view url,
            QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void applyStyle();

  theme::TextStyle style_;
  QString text_;
  QString url_;
};

}  // namespace orvane
