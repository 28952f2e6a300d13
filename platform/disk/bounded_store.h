// SPDX-License-Identifier: GPL-3.0-or-later
// The settings store for a thread that no disk may hold up.
#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <chrono>
#include <future>
#include <memory>

#include "settings/ports/settings_store.h"

namespace vaktor {

class MagasinFichier;

/// A MagasinFichier that only threads of its own touch, one after the other. The values are kept here as well, so that
/// reading one waits for nobody. User-interface thread.
class MagasinBorne : public MagasinReglages {
 public:
  using Duree = std::chrono::milliseconds;
  struct Patiences {
    /// With the question whether the disk answers at all (FichiersBornes), which is asked before a save that nobody
    /// has asked for, less than two seconds.
    Duree Ecriture{1200};
    /// Without its settings the program cannot start. A disk that has gone to sleep takes some seconds to turn.
    Duree Depart{30'000};
  };

  /// Reads the file. Throws Echec(kAccesFichier) with "path: reason" when it exists and cannot be read, or does not
  /// answer.
  explicit MagasinBorne(const QString& fichier) : MagasinBorne(fichier, Patiences()) {}
  MagasinBorne(const QString& fichier, Patiences patiences);
  /// A save that is under way goes on for as long as the process lives.
  ~MagasinBorne() override;
  MagasinBorne(const MagasinBorne&) = delete;
  MagasinBorne& operator=(const MagasinBorne&) = delete;

  QString LitReglage(const QString& section, const QString& cle, const QString& defaut) const override;
  void EcritReglage(const QString& section, const QString& cle, const QString& valeur) override;
  /// A save that is still under way cannot be called back.
  void Reprend(const QString& section, const QString& cle) override;
  /// Throws Echec(kAccesFichier) with "path: reason" when the disk refuses, or has not answered in time; what was set
  /// stays set and goes out with the next call. A save that has not been answered is not given up: it ends, whole, when
  /// its disk lets it, or fails; until then each call throws at once, so that none overtakes an older one.
  void Vide() override;
  QString Emplacement() const override { return Fichier_; }
  AbimesMagasin Abimes() const override { return Abimes_; }

 private:
  using Valeurs = QMap<QString, QString>;  // by "section/key"
  struct Ordre {
    QString Section;
    QString Cle;
    QString Valeur;  // null: taken back
  };
  Valeurs Attend(std::packaged_task<Valeurs()> tache, Duree patience);

  const QString Fichier_;
  const Patiences Patiences_;
  std::shared_ptr<MagasinFichier> Magasin_;  // of the thread that works with it, if there is one
  QList<Ordre> Ordres_;                      // what it has not been told yet
  AbimesMagasin Abimes_;                     // of the file as it was opened
  Valeurs Lues_;                             // as the file was when it was last read or written
  Valeurs Attente_;                          // set, and not known to be on the disk
  std::future<Valeurs> EnRetard_;
};

}  // namespace vaktor
