#pragma once

#include <QString>
#include <QTextDocument>
#include <string>
#include <string_view>
#include "platform/text/unicode.h"

namespace orvane {
[[nodiscard]] inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::string toUtf8(const QString& text) { return text.toStdString(); }

/// A tool tip that shows `text` as it is, also when it looks like markup.
[[nodiscard]] inline QString plainToolTip(std::string_view text) {
  const auto plain = toQString(numbersIsolated(text));
  return Qt::mightBeRichText(plain) ? plain.toHtmlEscaped() : plain;
}
}  // namespace orvane
