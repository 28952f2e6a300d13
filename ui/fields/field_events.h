// What the fields of all pages have in common: the red of an error mark, and the events that a field tells.
#pragma once

#include <QLineEdit>
#include <QObject>
#include <functional>

namespace vaktor {

/// Text colour: red where the user is to look, black otherwise.
void RougitChamp(QLineEdit& champ, bool rouge);
bool EstRouge(const QLineEdit& champ);

/// Takes texts of any length, and shows `conception` until the settings are read.
void PrepareChamp(QLineEdit& champ, const QString& conception);

/// For what a field does each time its text changes: a failure of `travail` leaves by an event of its own, which comes
/// to `champ` once this one is over. Qt's line edit is built without a way back: a failure that crosses it while it
/// tells of a change loses the text that it holds, at each key. When `champ` is gone by then, the failure is lost.
void ReporteEchec(QObject& champ, const std::function<void()>& travail);

/// Tells what happens to one field. Owned by the field.
class EvenementsChamp : public QObject {
  Q_OBJECT

 public:
  explicit EvenementsChamp(QWidget* champ);
  bool eventFilter(QObject* objet, QEvent* evenement) override;

 Q_SIGNALS:
  /// The focus goes to another control. Going to another window or opening a menu is no leaving.
  void Quitte();
  /// A left click, when the button is released over the field.
  void Clique();
  /// A key goes down in the field, before it does anything. Tab leaves the field and is none.
  void Touche();
};

}  // namespace vaktor
