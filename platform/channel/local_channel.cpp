// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/local_channel.h"

namespace vaktor {

CanalLocal::CanalLocal(const DossierCanal& dossier) : Dossier_(dossier), Emetteur_(dossier) {
  Dossier_.BalaiePerimees();
}

qint32 CanalLocal::OuvreBoite(std::function<void(const QString& texte)> recu) {
  auto boite = std::make_unique<BoiteLocale>(
      Dossier_, [recu = std::move(recu)](const QByteArray& message) { recu(QString::fromUtf8(message)); });
  const qint32 poignee = boite->Poignee();
  Boites_.emplace(poignee, std::move(boite));
  return poignee;
}

void CanalLocal::FermeBoite(qint32 poignee) { Boites_.erase(poignee); }

void CanalLocal::PosteTouche(qint32 poignee, qint32 code, Tenue tenue) noexcept {
  Emetteur_.PosteCommande(poignee, QByteArray::number(code), tenue);
}

Prise CanalLocal::DonnePrise(qint32 poignee) {
  const bool pris = Emetteur_.APris(poignee);
  if (!Emetteur_.Attend(poignee)) return Prise::kRien;
  return pris ? Prise::kPrend : Prise::kMuette;
}

void CanalLocal::OublieFenetre(qint32 poignee) noexcept {
  Emetteur_.Oublie(poignee);
  Dossier_.RetireSiPerimee(poignee);
}

}  // namespace vaktor
