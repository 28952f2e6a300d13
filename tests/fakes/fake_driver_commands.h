// SPDX-License-Identifier: GPL-3.0-or-later
// A capture driver and its devices, for the dialogs: they record what is asked and answer what the test says.
#pragma once

#include <QMap>
#include <QStringList>
#include <functional>
#include <utility>

#include "platform/capture/devices/device_access.h"
#include "platform/capture/dialogs/driver_commands.h"

namespace vaktor {

class FauxPilote : public CommandesPilote {
 public:
  GenreSource Genre() const override { return Genre_; }
  QString DescriptionSource() const override { return Description_; }
  QString AdresseEnService() const override { return Adresse_; }
  QString NoeudPeripherique() const override { return Noeud_; }
  QString NomStable() const override { return NomStable_; }
  FormatCamera FormatCourant() const override { return Format_; }
  bool AppliqueFormat(const FormatCamera& format) override {
    Appliques_.append(format);
    if (Accepte_) Format_ = format;
    return Accepte_;
  }
  bool ChangeSource(const QString& source) override {
    Sources_.append(source);
    if (PendantEssai_) PendantEssai_();
    if (std::exchange(Abandonnee_, false)) return false;
    if (Accepte_ && ApresSource_) ApresSource_(source);
    return Accepte_;
  }

  void Abandonne() override { Abandonnee_ = true; }
  Raison Pourquoi() const override { return Raison_; }

  GenreSource Genre_ = GenreSource::kPeripherique;
  QString Description_ = QStringLiteral("/dev/video0");
  QString Adresse_;
  QString Noeud_ = QStringLiteral("/dev/video0");
  QString NomStable_ = QStringLiteral("uvcvideo|Camera|usb-1");
  FormatCamera Format_ = {QStringLiteral("MJPG"), 640, 480, 30, 1};
  bool Accepte_ = true;
  Raison Raison_;
  bool Abandonnee_ = false;
  std::function<void()> PendantEssai_;               ///< runs while a source is being tried
  std::function<void(const QString&)> ApresSource_;  ///< what an accepted source makes of the driver
  QList<FormatCamera> Appliques_;
  QStringList Sources_;
};

class FauxPeripheriques : public AccesPeripheriques {
 public:
  struct Appel {
    QString Noeud;
    quint32 Numero;
    qint32 Valeur;
    bool operator==(const Appel&) const = default;
  };

  QList<PeripheriqueVideo> Peripheriques() const override { return Peripheriques_; }
  QList<FormatCamera> Formats(const QString& noeud) const override { return Formats_.value(noeud); }
  QList<ReglageCamera> Reglages(const QString& noeud) const override { return Reglages_.value(noeud); }
  bool Regle(const QString& noeud, quint32 numero, qint32 valeur) override {
    Appels_.append({noeud, numero, valeur});
    if (Refuses_.contains(numero)) return false;
    for (ReglageCamera& reglage : Reglages_[noeud])
      if (reglage.Numero == numero) reglage.Valeur = valeur;
    if (ApresReglage_) ApresReglage_(numero, valeur);
    return true;
  }

  QList<CameraBureau> CamerasDuBureau() const override { return DuBureau_; }
  QStringList Muets() const override { return Muets_; }
  std::unique_ptr<QObject> SuitBranchements(std::function<void()> change) const override {
    Branchement_ = std::move(change);
    return std::make_unique<QObject>();
  }

  mutable std::function<void()> Branchement_;  ///< what is to be called when something is plugged in

  QList<PeripheriqueVideo> Peripheriques_;
  QList<CameraBureau> DuBureau_;
  QStringList Muets_;
  QMap<QString, QList<FormatCamera>> Formats_;
  QMap<QString, QList<ReglageCamera>> Reglages_;
  QList<quint32> Refuses_;  ///< controls that refuse every value
  std::function<void(quint32, qint32)> ApresReglage_;
  QList<Appel> Appels_;
};

}  // namespace vaktor
