#include "shell/views/figure_table.h"

#include <QEvent>
#include <QHeaderView>

#include "shell/views/table_painting.h"
#include "shell/views/theme.h"
#include "shell/views/thin_scroll_bar.h"

namespace orvane {

FigureTable::FigureTable(QWidget* parent) : QTableView(parent) {
  setHorizontalHeader(new PlainHeader(this));
  setItemDelegate(new FigureCellDelegate(this));
  setFrameShape(QFrame::NoFrame);
  useThinScrollBars(*this);
  setShowGrid(false);
  setWordWrap(false);
  setSelectionMode(QAbstractItemView::NoSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(theme::tableRowHeight);
  viewport()->setAutoFillBackground(false);  // the panel around it has the ground and the corners
  applyStyle();
}

void FigureTable::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::ApplicationFontChange) { applyStyle(); }
}

void FigureTable::applyStyle() {
  setFont(theme::textFont(theme::TextStyle::calloutFigure));
  horizontalHeader()->setFont(theme::textFont(theme::TextStyle::captionSemibold));
}

}  // namespace orvane
