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

void CanalLocal::PosteTouche(qint32 poignee, qint32 code) noexcept {
  Emetteur_.Poste(poignee, QByteArray::number(code));
}

}  // namespace vaktor
