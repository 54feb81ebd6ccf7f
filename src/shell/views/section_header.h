#pragma once

#include <QHBoxLayout>
#include <QWidget>

#include "shell/views/text_label.h"

namespace orvane {

/// A section's title with a word about its content beside it; room for a control at the end.
class SectionHeader final : public QWidget {
  Q_OBJECT

 public:
  explicit SectionHeader(const QString& title, QWidget* parent = nullptr);

  void showSubtitle(std::string_view subtitle) { subtitle_->showTextOrHide(subtitle); }
  void addControl(QWidget* control) { row_->addWidget(control); }

 private:
  QHBoxLayout* row_;
  TextLabel* subtitle_;
};

}  // namespace orvane
