#pragma once

#include <QByteArray>
#include <QString>
#include <QTextDocument>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include "platform/secret/secret.h"
#include "platform/text/unicode.h"

namespace orvane {
[[nodiscard]] inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::string toUtf8(const QString& text) { return text.toStdString(); }

/// Leaves no other copy behind than the text itself.
[[nodiscard]] inline Secret toSecret(const QString& text) {
  QByteArray bytes = text.toUtf8();
  Secret secret(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
  ::explicit_bzero(bytes.data(), secret.view().size());
  return secret;
}

/// A tool tip that shows `text` as it is, also when it looks like markup.
[[nodiscard]] inline QString plainToolTip(std::string_view text) {
  const auto plain = toQString(numbersIsolated(text));
  return Qt::mightBeRichText(plain) ? plain.toHtmlEscaped() : plain;
}
}  // namespace orvane
