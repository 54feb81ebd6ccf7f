
#include <QApplication>
#include <QClipboard>
#include <QListView>
#include <QPainter>
#include "platform/desktop/symbols.h"
#include "shell/views/controls.h"
#include "shell/views/equal_digits.h"
#include "shell/views/figure_table.h"
#include "shell/views/view_fixture.h"

namespace orvane::test { namespace {

using namespace Qt::StringLiterals;
using theme::TextColor;

/// Colours, symbols and cells: what a table of texts cannot show.
class DrawingTest : public ViewTest {
 protected:
  [[nodiscard]] static bool isIn(TextColor color, const QLabel& label) {
    return label.palette().color(QPalette::WindowText) ==
           theme::textColor(color, label.parentWidget()->palette());
  }
  /// Whether the symbol that stands beside a text is this one; an empty name: no symbol.
  [[nodiscard]] static bool standsBeside(const QLabel& label, const char* symbol, TextColor color) {
    for (auto* const sibling : label.parentWidget()->findChildren<QWidget*>()) {
      if (!sibling->isVisible() || sibling->width() != theme::symbolSize) { continue; }
      SymbolLabel wanted(label.parentWidget());
      wanted.showSymbol(QString::fromLatin1(symbol), color);
      return sibling->grab().toImage() == wanted.grab().toImage();
    }
    return *symbol == '\0';
  }
};

TEST_F(DrawingTest, AFailureIsOrangeBehindATriangle) {
  show(everything());
  const auto& read = *label("Updated 2:05\u202fPM · 1 BTC = 84,123 € · refreshes every 5 minutes");
  EXPECT_TRUE(isIn(TextColor::secondary, read));
  EXPECT_TRUE(standsBeside(read, "", {}));
  show({.name = {}, .figures = everything(), .servicesFail = true});
  const auto& failure = *label(*fakes->state().accountStatus);
  EXPECT_TRUE(isIn(TextColor::orange, failure));
  EXPECT_TRUE(standsBeside(failure, "exclamationmark.triangle.fill", TextColor::orange));
  const QImage triangle = symbolPixmap("exclamationmark.triangle.fill", 16, Qt::red, 1).toImage();
  EXPECT_EQ(triangle.pixelColor(0, 0).alpha(), 0);
  for (const auto* const each : visible<QLabel>()) {
    EXPECT_NE(each->textFormat(), Qt::AutoText) << each->text().toStdString();
  }
}

TEST_F(DrawingTest, IconsAreDrawnForTheScaleOfTheScreen) {
  const QIcon icon = symbolIcon(u"arrow.clockwise"_s, QPalette(Qt::white));
  const QSize size(theme::symbolSize, theme::symbolSize);
  for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
    const auto drawn = symbolPixmap(u"arrow.clockwise"_s, theme::symbolSize, Qt::black, scale);
    EXPECT_EQ(icon.pixmap(size, scale).toImage(), drawn.toImage()) << scale;
    EXPECT_EQ(applicationIcon().pixmap({32, 32}, scale).size(), QSize(32, 32) * scale) << scale;
  }
}

TEST_F(DrawingTest, ABlockRewardIsGreenOnceItCanBeSpent) {
  show(watchedAddress());
  auto& list = *find<QListView>("Block rewards");
  for (const auto& [row, text, symbol, color] :
       {std::tuple(1, "Block #871,000 · 312,731,002 sats · 13 of 100 confirmations", "hourglass",
                   TextColor::orange),
        {2, "Block #870,400 · 312,604,177 sats · spendable", "checkmark.seal.fill",
         TextColor::green}}) {
    EXPECT_EQ(list.model()->index(row, 0).data().toString(), QString::fromUtf8(text));
    const QSize size(theme::symbolSize, theme::symbolSize);
    SymbolLabel wanted(&list);
    wanted.showSymbol(QString::fromLatin1(symbol), color);
    const QRect place(list.visualRect(list.model()->index(row, 0)).topLeft(), size);
    EXPECT_EQ(list.viewport()->grab(place).toImage(), wanted.grab().toImage()) << text;
  }
}

TEST_F(DrawingTest, WhatBelongsToAnAccountOrAMinerIsThereWithThemOnly) {
  const auto shown = [this](const BalanceState& figures) {
    show(figures);
    std::string parts;
    if (label("from Hashwick")) { parts += "miner "; }
    if (find<QLabel>("Open the account at pool.test")) { parts += "link "; }
    if (label("Braiins lists no worker for this account.")) { parts += "no-workers "; }
    if (find<QTableView>("Workers")) { parts += "workers "; }
    if (find<QTableView>("Daily history")) { parts += "history "; }
    return parts;
  };
  EXPECT_EQ(shown(watchedAddress()), "");
  EXPECT_EQ(shown(everything()), "miner link workers history ");
  auto withoutWorkers = poolAccount();
  withoutWorkers.workers.clear();
  EXPECT_EQ(shown(withoutWorkers), "link no-workers ");
}

TEST_F(DrawingTest, EveryFigureStandsUnderItsTitle) {
  show(everything());
  const auto firstRow = [this](const char* table) {
    const auto& model = *find<QTableView>(table)->model();
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
      cells.append(model.headerData(column, Qt::Horizontal).toString());
      cells.append(model.index(0, column).data().toString());
    }
    return cells.join(u'|').toStdString();
  };
  EXPECT_EQ(firstRow("Workers"),
            "Worker|garage|State|Low|5 min|95.68 TH/s|60 min|93.80 TH/s|24 h|90.99 TH/s");
  EXPECT_EQ(firstRow("Daily history"),
            "DATE|Nov 15, 2026|AVG HASHRATE|91.00 TH/s|ACCEPTED SHARES|1,900,000,000|"
            "CONFIRMED REWARD|4,000 sats");
}

TEST_F(DrawingTest, AWorkersStateHasAWordADotAndATip) {
  show(everything());
  const auto& model = *find<QTableView>("Workers")->model();
  using enum theme::MarkColor;
  const auto words = u"Low,OK,OK,—,Off,Disabled"_s.split(u',');
  const theme::MarkColor dots[]{orange, green, green, gray, red, gray};
  for (int row = 0; row < words.size(); ++row) {
    EXPECT_EQ(model.index(row, 1).data(), words[row]);
    EXPECT_EQ(model.index(row, 1).data(dotColorRole), static_cast<int>(dots[row])) << row;
    EXPECT_FALSE(model.index(row, 0).data(dotColorRole).isValid());
  }
  EXPECT_EQ(model.index(0, 0).data(Qt::ToolTipRole), u"pellam.garage"_s);
  EXPECT_EQ(plainToolTip("<b>1</b>"), u"&lt;b&gt;1&lt;/b&gt;"_s);
  EXPECT_EQ(model.index(0, 1).data(Qt::ToolTipRole), u"Last share Nov 15, 2026, 2:02\u202fPM"_s);
}

// Figures were drawn in another family where the interface font's digits differ in width.
TEST_F(DrawingTest, EverythingIsInTheInterfaceFontAndDigitsStandBelowEachOther) {
  const QFont before = QApplication::font();
  const QFont proportional("Cantarell");
  ASSERT_EQ(QFontInfo(proportional).family(), proportional.family());
  QApplication::setFont(proportional);
  show(everything());
  for (const auto* const widget : visible<QWidget>()) {
    const QFontInfo info(widget->font());
    EXPECT_TRUE(info.fixedPitch() || info.family() == proportional.family())
        << widget->metaObject()->className() << " " << info.family().toStdString();
  }
  // What stands before digits stands at the same place, whichever they are.
  const auto barBefore = [](const char* digits) {
    QImage image(100, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    const EqualDigits equal(theme::textFont(theme::TextStyle::calloutFigure));
    equal.draw(painter, image.rect(), QString::fromLatin1(digits), Qt::AlignRight);
    int x = 0;
    while (x < image.width() && image.pixelColor(x, 10) == Qt::white) {
      ++x;
    }
    return x;
  };
  const int place = barBefore("|111,111 X");
  EXPECT_EQ(barBefore("|444,444 X"), place);
  QApplication::setLayoutDirection(Qt::RightToLeft);  // no matter to what is Latin
  EXPECT_EQ(barBefore("|444,444 X"), place);
  QApplication::setLayoutDirection(Qt::LeftToRight);
  QApplication::setFont(before);
}

// Qt gave a text that can be selected the direction of the date in it: its parts changed places.
TEST_F(DrawingTest, ATextThatBeginsWithAnArabicDateRunsAsItReadsAndIsCopiedAsItIs) {
  const std::string text = "١٥\u200f/١١\u200f/٢٠٢٦ · ٤٬٠٠٠ sats";
  std::vector<int> ink;
  for (const bool canBeSelected : {false, true}) {
    TextLabel date(theme::TextStyle::body);
    if (canBeSelected) { date.makeSelectable(); }
    date.showText(text);
    date.resize(400, 40);
    ink.push_back(inkWithin(date.grab()).first);
    QTest::keySequence(&date, QKeySequence::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), text);
  }
  EXPECT_NEAR(ink[0], ink[1], 1);
}

// A text becomes a document when the pointer comes.
TEST_F(DrawingTest, ATextThatCanBeSelectedStaysAsItIsWhenThePointerComes) {
  for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    QApplication::setLayoutDirection(direction);
    show(everything());
    int documents = 0;
    for (auto* const each : visible<QLabel>()) {
      if (each->focusPolicy() != Qt::NoFocus) { continue; }
      const QImage before = each->grab().toImage();
      const QSize size = each->sizeHint();
      const int height = each->heightForWidth(each->width());
      bringPointerTo(*each);
      documents += each->focusPolicy() == Qt::ClickFocus ? 1 : 0;
      EXPECT_EQ(each->grab().toImage(), before) << each->text().toStdString();
      EXPECT_EQ(each->sizeHint(), size) << each->text().toStdString();
      EXPECT_EQ(each->heightForWidth(each->width()), height) << each->text().toStdString();
    }
    EXPECT_EQ(documents, 14);
  }
  QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(DrawingTest, LinesStandBetweenTheRows) {
  show(everything());
  const auto& table = *find<QTableView>("Workers");
  const int last = table.model()->rowCount() - 1;
  for (const int row : {0, last}) {
    const QRect cell = table.visualRect(table.model()->index(row, 0));
    const QImage drawn = table.viewport()->grab(cell).toImage();
    const bool isLined = drawn.pixel(0, cell.height() - 1) != drawn.pixel(0, cell.height() - 2);
    EXPECT_EQ(isLined, row != last) << row;
  }
}

TEST_F(DrawingTest, NoRowCanBeSelected) {
  show(everything());
  auto& table = *find<QTableView>("Workers");
  table.selectAll();
  EXPECT_FALSE(table.selectionModel()->hasSelection());
}

}}  // namespace orvane::test
