#pragma once

#include <QFont>

/// The design's numbers and type, in one place. Lengths are logical pixels.
namespace orvane::theme {
/// A length of the design that grows with the interface font where that is larger than the
/// design's, for what has to stay in proportion to the text beside it.
[[nodiscard]] int grown(int length);

inline constexpr int windowPadding = 24;
inline constexpr int barPadding = 12;  ///< above and below the bar at the bottom
inline constexpr int leftColumnWidth = 500;
inline constexpr int rightColumnMinimumWidth = 690;  ///< with the line at its left
/// Lines of text and fields beyond this width are hard to read; wider windows leave the rest empty.
inline constexpr int readableWidth = 760;
inline constexpr int leftColumnSpacing = 8;
inline constexpr int rightColumnSpacing = 22;
inline constexpr int groupGap = 12;  ///< the "space above" a further group of settings
inline constexpr int smallSpacing = 8;

inline constexpr int cardPadding = 20;
inline constexpr int cardSpacing = 14;
inline constexpr int cardRadius = 14;
inline constexpr double cardFillOpacity = 0.08;
inline constexpr double cardOutlineOpacity = 0.25;

inline constexpr int panelRadius = 10;
inline constexpr int panelPadding = 20;  ///< left and right of everything in a panel
inline constexpr double panelOutlineOpacity = 0.2;

inline constexpr int metricSpacing = 28;
inline constexpr int metricRowGap = 12;
inline constexpr int metricLineSpacing = 2;
inline constexpr int pickerWidth = 120;
inline constexpr int chipHorizontalPadding = 10;
inline constexpr int chipVerticalPadding = 5;
inline constexpr int chipRadius = 6;
inline constexpr double chipOpacity = 0.12;

inline constexpr int tableRowHeight = 30;  ///< at least
inline constexpr int tableCellPadding = 12;
inline constexpr int workersShownWhole = 100;       ///< longer lists scroll within the table
inline constexpr double workersRowsInSight = 12.5;  ///< of these; half a row says that they go on
inline constexpr int stateColumnWidth = 80;
inline constexpr int rateColumnWidth = 110;
inline constexpr int stateDotSize = 8;
inline constexpr int historyTableMinimumHeight = 200;
inline constexpr int summaryVerticalPadding = 10;

inline constexpr int controlHeight = 28;  ///< of buttons and fields, at least
inline constexpr int buttonPadding = 10;  ///< beside a button's text, at least
inline constexpr int scrollBarWidth = 12;
inline constexpr int symbolSize = 14;
inline constexpr int busyIndicatorSize = 14;
inline constexpr int busyStepMilliseconds = 250;  ///< each wakes the machine

inline constexpr int appIconSize = 82;
inline constexpr int aboutWidth = 470;
inline constexpr int helpMinimumWidth = 620;
inline constexpr int helpMinimumHeight = 500;
inline constexpr int helpSpacing = 18;
inline constexpr int footerHeight = 52;  ///< at least
inline constexpr int footerPadding = 22;

/// What a text is to its reader; each has one font.
enum class TextStyle {
  caption,
  captionSemibold,
  captionBold,
  callout,
  calloutFigure,  ///< "figure": digits of equal width
  calloutMonospaced,
  body,
  bodyMonospaced,
  bodyBoldFigure,
  headline,
  title2MediumFigure,
  title2Bold,
  titleMediumFigure,
  titleBold,
  largeFigure,
};

/// The font of a style. Sizes follow the desktop's own interface font.
[[nodiscard]] QFont textFont(TextStyle style);
}  // namespace orvane::theme
