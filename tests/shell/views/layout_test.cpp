#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>

#include "shell/view_models/window_layout.h"
#include "shell/views/content_fixture.h"
#include "shell/views/theme.h"

namespace orvane::test {
namespace {

/// Every state at every width that the design names.
class LayoutTest : public ContentTest, public testing::WithParamInterface<int> {};

bool isCutOff(const QLabel& label) {
  if (!label.isVisible() || label.wordWrap() || label.textFormat() == Qt::RichText) {
    return false;
  }
  return QFontMetrics(label.font()).horizontalAdvance(label.text()) > label.width() + 1;
}

TEST_P(LayoutTest, NoTextIsCutOffAndNoColumnScrollsSideways) {
  for (const auto& sample : namedStates()) {
    if (GetParam() < windowLayout(sample.state).minimumWidth) { continue; }
    show(sample.state);
    content->setMinimumSize(0, 0);
    content->resize(GetParam(), 900);
    QCoreApplication::processEvents();
    for (const auto* const label : content->findChildren<QLabel*>()) {
      EXPECT_FALSE(isCutOff(*label)) << sample.name << ": " << label->text().toStdString();
    }
    for (const auto* const column : content->findChildren<QScrollArea*>()) {
      if (!column->isVisible()) { continue; }
      EXPECT_EQ(column->horizontalScrollBar()->maximum(), 0)
          << sample.name << ": " << column->accessibleName().toStdString();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Widths, LayoutTest, testing::Values(500, 640, 1190, 1600));

class ColumnTest : public ContentTest {};

TEST_F(ColumnTest, TheLeftColumnIsFixedBesideTheAccountAndTakesAllWithoutIt) {
  show(everything());
  content->resize(1600, 1000);
  QCoreApplication::processEvents();
  const auto* const left = find<QScrollArea>(QStringLiteral("Balance and settings"));
  EXPECT_EQ(left->width(), 500);
  show(watchedAddress());
  content->resize(1600, 1000);
  QCoreApplication::processEvents();
  EXPECT_EQ(find<QScrollArea>(QStringLiteral("Balance and settings"))->width(), 1600);
}

}  // namespace
}  // namespace orvane::test
