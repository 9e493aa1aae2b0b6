#pragma once

#include <QColor>
#include <QPalette>
#include <QWidget>

#include "core/controls.h"

namespace varnisto {

/// True when light text stands on a dark window.
bool is_dark(const QPalette& palette);

/// The colour of the 16-colour palette in a shade that can be read on the window's background. Black is the
/// palette's own text colour.
QColor shade_of(Color color, const QPalette& palette);

/// Draws a widget's text (`role`) in a colour. A disabled widget keeps the grey of its kind.
void tint(QWidget& widget, QPalette::ColorRole role, Color color, const QPalette& window);

}  // namespace varnisto
