// SPDX-License-Identifier: GPL-3.0-or-later
// What the fields of all pages have in common: the red of an error mark, and the events that a field tells.
#pragma once

#include <QLineEdit>
#include <QObject>
#include <functional>

class QWindow;

namespace vaktor {

/// Text colour: red where the user is to look, black otherwise.
void RougitChamp(QLineEdit& champ, bool rouge);
bool EstRouge(const QLineEdit& champ);

/// Takes texts of any length, and shows `conception` until the settings are read.
void PrepareChamp(QLineEdit& champ, const QString& conception);

/// For what a field does each time its text changes, or outside of its events: a failure of `travail` leaves by an
/// event of its own, which comes to `champ` once this one is over. Qt's line edit is built without a way back: a
/// failure that crosses it while it tells of a change loses the text that it holds, at each key. When `champ` is gone
/// by then, the failure is lost.
void ReporteEchec(QObject& champ, const std::function<void()>& travail);

/// Tells what happens to one field. Owned by the field.
class EvenementsChamp : public QObject {
  Q_OBJECT

 public:
  explicit EvenementsChamp(QWidget* champ);
  bool eventFilter(QObject* objet, QEvent* evenement) override;

 Q_SIGNALS:
  /// The focus goes to another control, or the user chooses another window of the program. Another program, a message
  /// that comes up and an opened menu are no leaving: the field has the focus again afterwards.
  void Quitte();
  /// A left click, when the button is released over the field.
  void Clique();
  /// A key goes down in the field, or text comes in by another way (dropped, pasted by the middle button, composed by
  /// an input method), before it does anything. Tab leaves the field and is none.
  void Touche();

 private:
  bool EstDepart(Qt::FocusReason raison);
  bool EstAutreFenetre(const QWindow* fenetre) const;
  void AttendFenetre();

  QWidget* Champ_;
  QMetaObject::Connection Attente_;  // for the window that is chosen next
};

}  // namespace vaktor
