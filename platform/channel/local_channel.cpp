// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/local_channel.h"

namespace vaktor {

CanalLocal::CanalLocal(const DossierCanal& dossier) : Dossier_(dossier), Emetteur_(dossier) {
  Dossier_.BalaiePerimees();
}

qint32 CanalLocal::OuvreCasier(std::function<void(const QString& texte)> recu) {
  auto casier = std::make_unique<CasierLocal>(
      Dossier_, [recu = std::move(recu)](const QByteArray& message) { recu(QString::fromUtf8(message)); });
  const qint32 poignee = casier->Poignee();
  Casiers_.emplace(poignee, std::move(casier));
  return poignee;
}

void CanalLocal::FermeCasier(qint32 poignee) { Casiers_.erase(poignee); }

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
