#pragma once
// Texts of the routines (UTF-8, CR LF) as Qt's widgets take them.

#include <QString>
#include <string>
#include <string_view>

namespace varnisto {

/// A text with line feeds for CR LF.
inline QString qt_text(std::string_view text) {
  QString result = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  return result.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

/// A caption: an ampersand in it is a character, no mnemonic.
inline QString qt_caption(std::string_view text) {
  return qt_text(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace varnisto
