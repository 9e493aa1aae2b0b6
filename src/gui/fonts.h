#pragma once

#include <QFont>
#include <QString>

namespace varnisto {

/// A font in which a Japanese character is as wide as two Latin ones, so that columns stand.
QFont fixed_japanese_font();

/// What to install when the system has no Japanese font, in Latin letters; empty when it has one.
QString missing_font_message();

}  // namespace varnisto
