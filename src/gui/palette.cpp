#include "gui/palette.h"

namespace varnisto {
namespace {

struct Shades {
  Color color;
  QRgb on_light, on_dark;
};
constexpr Shades shades[] = {{Color::green, 0xff006b1b, 0xff7ddc8a},
                             {Color::blue, 0xff1040d0, 0xff8fb8ff},
                             {Color::red, 0xffc00018, 0xffff8f88}};

}  // namespace

bool is_dark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QColor shade_of(Color color, const QPalette& palette) {
  for (const Shades& shade : shades)
    if (shade.color == color) return QColor::fromRgb(is_dark(palette) ? shade.on_dark : shade.on_light);
  return palette.color(QPalette::WindowText);
}

void tint(QWidget& widget, QPalette::ColorRole role, Color color, const QPalette& window) {
  QPalette palette;  // what is not set here is inherited
  if (color != Color::black)
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
      palette.setColor(group, role, shade_of(color, window));
  widget.setPalette(palette);
}

}  // namespace varnisto
