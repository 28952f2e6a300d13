// SPDX-License-Identifier: GPL-3.0-or-later
// BoutonEntendu: what the buttons that draw themselves owe to those who do not use a mouse or do not see.
#pragma once

#include <QAbstractButton>

namespace vaktor {

/// Enter clicks as the space key does, and a button may be heard to be on. User-interface thread.
class BoutonEntendu : public QAbstractButton {
  Q_OBJECT

 public:
  using QAbstractButton::QAbstractButton;
  /// What the button stands for is on: heard, never seen. A click does not change it. Before the first call nothing of
  /// the kind is heard.
  void Engage(bool engage);

 protected:
  /// It has the focus, and that did not come by the mouse: only then is it shown.
  bool FocusMontre() const { return FocusMontre_ && hasFocus(); }
  void focusInEvent(QFocusEvent* evenement) override;
  void keyPressEvent(QKeyEvent* evenement) override;
  void mousePressEvent(QMouseEvent* evenement) override;
  void checkStateSet() override;
  void nextCheckState() override {}  // the rules behind the click decide what is on

 private:
  bool Annonce_ = false;      // Engage is at work
  bool FocusMontre_ = false;  // how the focus came last
};

}  // namespace vaktor
