// SPDX-License-Identifier: GPL-3.0-or-later
// Fields to type in, made without the desktop's own font.
#pragma once

#include <QFont>
#include <QGuiApplication>
#include <QWidget>

namespace vaktor {

/// The application's font, as long as this lives. Only what is made meanwhile takes it: no control hears of it, as one
/// would of QApplication's. User-interface thread.
class PoliceProvisoire {
 public:
  explicit PoliceProvisoire(const QFont& police) : Avant_(QGuiApplication::font()) { QGuiApplication::setFont(police); }
  ~PoliceProvisoire() { QGuiApplication::setFont(Avant_); }
  PoliceProvisoire(const PoliceProvisoire&) = delete;
  PoliceProvisoire& operator=(const PoliceProvisoire&) = delete;

 private:
  QFont Avant_;
};

/// A field of the type `Champ` (QLineEdit, QPlainTextEdit) in `police`, empty. `parent` owns it.
///
/// The toolkit lays out a field's first text in the application's font, before anybody can give the field another one:
/// that alone would load the desktop's font for good, half a megabyte that no window of ours shows. Here the first
/// layout is made in `police`. A font that the desktop chooses later, while the program runs, no longer comes in.
template <typename Champ>
Champ* CreeChampEnPolice(QWidget* parent, const QFont& police) {
  const PoliceProvisoire provisoire(police);
  auto* champ = new Champ;
  champ->setFont(police);
  champ->setParent(parent);  // only now: without a font of its own it would take the one that the parent has from there
  return champ;
}

}  // namespace vaktor
