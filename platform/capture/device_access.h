// The dialogs' way to the devices, so that they can be tried without any.
#pragma once

#include "platform/capture/v4l2_device.h"

namespace vaktor {

class AccesPeripheriques {
 public:
  virtual ~AccesPeripheriques() = default;
  virtual QList<PeripheriqueVideo> Peripheriques() const = 0;
  virtual QList<FormatCamera> Formats(const QString& noeud) const = 0;
  virtual QList<ReglageCamera> Reglages(const QString& noeud) const = 0;
  virtual bool Regle(const QString& noeud, quint32 numero, qint32 valeur) = 0;
};

/// A source as people know it: a device by its card's name and node, others as they describe themselves.
inline QString NomPourGens(const AccesPeripheriques& acces, const QString& noeud, const QString& description) {
  if (noeud.isEmpty()) return description;
  const QList<PeripheriqueVideo> peripheriques = acces.Peripheriques();
  for (const PeripheriqueVideo& p : peripheriques)
    if (p.Noeud == noeud) return QStringLiteral("%1 (%2)").arg(p.Nom, p.Noeud);
  return description;
}

/// The devices of this machine (v4l2_device.h).
class AccesV4L2 final : public AccesPeripheriques {
 public:
  QList<PeripheriqueVideo> Peripheriques() const override { return ListePeripheriques(); }
  QList<FormatCamera> Formats(const QString& noeud) const override { return ListeFormats(noeud); }
  QList<ReglageCamera> Reglages(const QString& noeud) const override { return ListeReglages(noeud); }
  bool Regle(const QString& noeud, quint32 numero, qint32 valeur) override {
    return AppliqueReglage(noeud, numero, valeur);
  }
};

}  // namespace vaktor
