// SPDX-License-Identifier: GPL-3.0-or-later
// Port: makes one film of photos, without holding up the window.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

namespace vaktor {

enum class FormatFilm {
  kMatroska,  ///< the JPEG files as they are
  kMp4        ///< H.264
};

struct FilmVoulu {
  QStringList Chemins;     ///< of the photos, stored form
  QList<qint64> Instants;  ///< as many: when each is shown, ms from the first; never back
  QString Sortie;          ///< native path of the film; a file of that name is replaced when the film is whole
  FormatFilm Format = FormatFilm::kMatroska;
};

enum class EtatFilm {
  kFait,
  kAnnule,
  kSansPhoto,  ///< not one of the photos could be read
  kDisque,     ///< Erreur says why the film could not be written
  kSansMoyens  ///< no thread, no memory, or the encoder has failed: Mots says what it said
};

struct FilmFait {
  EtatFilm Etat = EtatFilm::kSansMoyens;
  int Erreur = 0;      ///< kDisque: the system's error number
  int Manquantes = 0;  ///< photos that are not in it: gone, damaged, or of another size than the first
  QString Mots = {};
};

/// User-interface thread. One film at a time.
class EcrivainFilm {
 public:
  using Avance = std::function<void(int photos)>;
  using Fini = std::function<void(const FilmFait&)>;

  virtual ~EcrivainFilm() = default;
  /// Whether this machine can make one; costs little after the first call.
  virtual bool Sait(FormatFilm format) = 0;
  /// Calls `avance` now and then and `fini` once, both from the event loop. Whatever happens, at the name of the film
  /// there is a whole film or what was there before.
  virtual void Ecrit(const FilmVoulu& film, Avance avance, Fini fini) = 0;
  /// The film under way is given up: `fini` comes with kAnnule, soon.
  virtual void Annule() = 0;
};

}  // namespace vaktor
