// SPDX-License-Identifier: GPL-3.0-or-later
// Work that only changes what a window shows: put off while the window is on no screen, and done once when it comes
// back. A program that watches all night minimised formats, measures and announces nothing to nobody.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <functional>

namespace vaktor {

/// Owner: the widget, as its child. User-interface thread.
class TravailVisible : public QObject {
  Q_OBJECT

 public:
  /// `travail` shows the newest state; it is asked for often and may be done less often.
  TravailVisible(QWidget* widget, std::function<void()> travail);

  /// Does the work now, or, while the window is shown but covers no part of a screen (minimised, unmapped), when it is
  /// exposed again. A window that was never shown, or is hidden, is no such case: there it costs nothing to speak of.
  void Demande();

 protected:
  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  QWidget* Widget_;
  const std::function<void()> Travail_;
  QPointer<QWindow> Attendue_;  // the window whose return is waited for
};

}  // namespace vaktor
