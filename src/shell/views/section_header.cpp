#include "shell/views/section_header.h"

#include "shell/views/flow_layout.h"

namespace orvane {

SectionHeader::SectionHeader(const QString& title, QWidget* parent)
    : QWidget(parent),
      row_(new QHBoxLayout(this)),
      subtitle_(new TextLabel(theme::TextStyle::callout, theme::TextColor::secondary, this)) {
  auto* const heading = new TextLabel(theme::TextStyle::headline, theme::TextColor::primary, this);
  heading->setText(title);
  auto* const texts = new FlowLayout(FlowLayout::Align::baseline, theme::smallSpacing, 0);
  texts->addWidget(heading);
  texts->addWidget(subtitle_);
  row_->setContentsMargins(0, 0, 0, 0);
  row_->addLayout(texts, 1);
  row_->setAlignment(texts, Qt::AlignVCenter);
}

}  // namespace orvane
