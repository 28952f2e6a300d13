#include "platform/capture/devices/device_access.h"

namespace vaktor {

QList<CandidatVideo> AccesV4L2::Candidats() const {
  const auto reponses =
      Guichets_.DemandeATous<std::optional<CandidatVideo>>(Questions_.Noeuds(), Questions_.Sonde, Limites_.Liste);
  QList<CandidatVideo> candidats;
  for (const auto& reponse : reponses)
    if (reponse && *reponse) candidats.append(**reponse);
  return candidats;
}

QList<PeripheriqueVideo> AccesV4L2::Peripheriques() const { return NommePeripheriques(Candidats()); }

std::optional<PeripheriqueVideo> AccesV4L2::Retrouve(const QString& nomStable) const {
  return RetrouveParmi(Candidats(), nomStable);
}

QList<FormatCamera> AccesV4L2::Formats(const QString& noeud) const {
  const auto question = [formats = Questions_.Formats, noeud] { return formats(noeud); };
  return Guichets_.Demande<QList<FormatCamera>>(noeud, question, Limites_.Question).value_or(QList<FormatCamera>());
}

QList<ReglageCamera> AccesV4L2::Reglages(const QString& noeud) const {
  const auto question = [reglages = Questions_.Reglages, noeud] { return reglages(noeud); };
  return Guichets_.Demande<QList<ReglageCamera>>(noeud, question, Limites_.Question).value_or(QList<ReglageCamera>());
}

bool AccesV4L2::Regle(const QString& noeud, quint32 numero, qint32 valeur) {
  const auto question = [regle = Questions_.Regle, noeud, numero, valeur] { return regle(noeud, numero, valeur); };
  return Guichets_.Demande<bool>(noeud, question, Limites_.Question).value_or(false);
}

}  // namespace vaktor
