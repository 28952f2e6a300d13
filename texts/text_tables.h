// All words of the program by table, number and language. Data only: who shows which word is told by the forms.
#pragma once

#include <QString>

namespace vaktor {

/// The five tables of the current language. Owner: app/ makes one; forms read it. Numbers have gaps; a number without
/// a row gives the empty text.
class TablesTextes {
 public:
  /// Fills all tables: 0 French, 1 English. Any other language fills nothing and leaves what the tables hold.
  void Remplit(qint32 langue);

  QString Texte(int n) const;              ///< captions, list items, status words
  QString Aide(int n) const;               ///< tooltips
  QString Messages(int n) const;           ///< texts and titles of message boxes; line breaks are CR LF
  QString LibelleBouton(int i) const;      ///< faces of Bouton, 0 to 7; 7 is Bouton(0) while the camera runs
  QString LibelleBoutonGris(int i) const;  ///< faces of BoutonGris, 0 to 8

 private:
  int Colonne_ = -1;  // -1: nothing filled yet, all texts are empty
};

}  // namespace vaktor
