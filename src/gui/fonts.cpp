#include "gui/fonts.h"

#include <QFontDatabase>
#include <QStringList>

namespace varnisto {

QFont fixed_japanese_font() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setFamilies({QStringLiteral("Noto Sans Mono CJK JP"), QStringLiteral("IPAGothic"),
                    QStringLiteral("VL Gothic"), QStringLiteral("MS Gothic"), QStringLiteral("TakaoGothic"),
                    font.family()});
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  return font;
}

QString missing_font_message() {
  if (!QFontDatabase::families(QFontDatabase::Japanese).isEmpty()) return {};
  return QStringLiteral(
      "No Japanese font was found: the texts of this program cannot be drawn.\n"
      "Install one of these packages and start the program again:\n"
      "fonts-noto-cjk, fonts-ipafont-gothic, fonts-vlgothic");
}

}  // namespace varnisto
