// SPDX-License-Identifier: GPL-3.0-or-later
// CaseACocher: a check box of the pages, and the words beside it.
#pragma once

#include <QCheckBox>
#include <QLabel>

namespace vaktor {

/// A check box without a caption that takes clicks on its whole area and tells when the mouse (any button) is released
/// on it, after the box has taken its new state. The space key, a screen reader and a click on the words beside it tell
/// the same, so that box and flag never disagree. User-interface thread.
class CaseACocher : public QCheckBox {
  Q_OBJECT

 public:
  explicit CaseACocher(QWidget* parent);
  /// All that a click does, for whoever has no mouse on the box.
  void Bascule();

 Q_SIGNALS:
  void Relachee();

 protected:
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }
  void mouseReleaseEvent(QMouseEvent* evenement) override;
  void keyReleaseEvent(QKeyEvent* evenement) override;
};

/// A left click on `mots`, pressed and released there, switches `boite` and gives it the focus. Both live as long as
/// their page.
void RelieMots(QLabel& mots, CaseACocher& boite);

}  // namespace vaktor
