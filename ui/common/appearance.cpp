// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/common/appearance.h"

#include <QApplication>
#include <QStyleFactory>
#include <QToolTip>
#include <utility>

namespace vaktor {

namespace {

constexpr QRgb kFond = qRgb(226, 228, 232);
constexpr QRgb kEncreEteinte = qRgb(110, 113, 118);  // of what is off

}  // namespace

// The constructor makes the shades of a button out of one colour, and leaves the rest to the desktop: a dark theme's
// selection and its tool tips would come into light windows.
QPalette DonnePalette() {
  QPalette palette{QColor(kFond)};
  const std::pair<QPalette::ColorRole, QColor> roles[] = {{QPalette::Base, Qt::white},
                                                          {QPalette::Text, Qt::black},
                                                          {QPalette::AlternateBase, QColor(0xf0, 0xf2, 0xf5)},
                                                          {QPalette::Highlight, QColor(0x2a, 0x6e, 0xb0)},
                                                          {QPalette::HighlightedText, Qt::white},
                                                          {QPalette::Link, QColor(0x00, 0x48, 0xb0)},
                                                          {QPalette::LinkVisited, QColor(0x6a, 0x2a, 0x8a)},
                                                          {QPalette::ToolTipBase, QColor(0xff, 0xff, 0xdc)},
                                                          {QPalette::ToolTipText, Qt::black},
                                                          {QPalette::PlaceholderText, QColor(0x6a, 0x6d, 0x72)}};
  for (const auto& [role, couleur] : roles) palette.setColor(QPalette::All, role, couleur);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(kEncreEteinte));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x5c, 0x62, 0x6b));
  // What has its value from the constructor is ours as well: a colour that is set counts, one that was derived does
  // not.
  for (const auto groupe : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
      const auto lequel = static_cast<QPalette::ColorRole>(role);
      if (lequel != QPalette::NoRole) palette.setBrush(groupe, lequel, palette.brush(groupe, lequel));
    }
  }
  return palette;
}

// All places are fixed in pixels and fields are black on white: the desktop's own style and dark palettes do not fit.
void HabilleApplication() {
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(DonnePalette());
  QToolTip::setPalette(DonnePalette());  // they have one of their own from the theme
}

}  // namespace vaktor
