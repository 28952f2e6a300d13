// The dialogs' way to the devices, so that they can be tried without any.
#pragma once

#include <chrono>
#include <functional>

#include "platform/capture/devices/node_desk.h"
#include "platform/capture/devices/v4l2_device.h"

namespace vaktor {

class AccesPeripheriques {
 public:
  virtual ~AccesPeripheriques() = default;
  virtual QList<PeripheriqueVideo> Peripheriques() const = 0;
  virtual QList<FormatCamera> Formats(const QString& noeud) const = 0;
  virtual QList<ReglageCamera> Reglages(const QString& noeud) const = 0;
  virtual bool Regle(const QString& noeud, quint32 numero, qint32 valeur) = 0;
  /// Nodes that leave a question unanswered at this moment: what is empty or refused above may be so because of that.
  virtual QStringList Muets() const { return {}; }
};

/// A source as people know it: a device by its card's name and node, others as they describe themselves.
inline QString NomPourGens(const AccesPeripheriques& acces, const QString& noeud, const QString& description) {
  if (noeud.isEmpty()) return description;
  const QList<PeripheriqueVideo> peripheriques = acces.Peripheriques();
  for (const PeripheriqueVideo& p : peripheriques)
    if (p.Noeud == noeud) return QStringLiteral("%1 (%2)").arg(p.Nom, p.Noeud);
  return description;
}

/// The questions of v4l2_device.h, so that a test can put others in their place. Each may come from any thread.
struct QuestionsV4L2 {
  std::function<QStringList()> Noeuds = ListeNoeudsVideo;
  std::function<std::optional<CandidatVideo>(const QString&)> Sonde = SondeNoeudVideo;
  std::function<QList<FormatCamera>(const QString&)> Formats = ListeFormats;
  std::function<QList<ReglageCamera>(const QString&)> Reglages = ListeReglages;
  std::function<bool(const QString&, quint32, qint32)> Regle = AppliqueReglage;
};

/// The devices of this machine, asked so that none of them can hold who asks: the windows live meanwhile, and a device
/// that does not answer in time is as if it were not there, beside others that are. For one thread.
class AccesV4L2 final : public AccesPeripheriques {
 public:
  struct Limites {
    std::chrono::milliseconds Liste{1000};     ///< a device tells its name out of its driver's memory
    std::chrono::milliseconds Question{5000};  ///< controls may be fetched from the camera itself, one by one
  };

  AccesV4L2() : AccesV4L2(QuestionsV4L2(), Limites()) {}
  AccesV4L2(QuestionsV4L2 questions, Limites limites) : Questions_(std::move(questions)), Limites_(limites) {}

  QList<PeripheriqueVideo> Peripheriques() const override;
  /// RetrouvePeripherique among those that answer.
  std::optional<PeripheriqueVideo> Retrouve(const QString& nomStable) const;
  QList<FormatCamera> Formats(const QString& noeud) const override;
  QList<ReglageCamera> Reglages(const QString& noeud) const override;
  bool Regle(const QString& noeud, quint32 numero, qint32 valeur) override;
  QStringList Muets() const override { return Guichets_.Muets(); }

 private:
  QList<CandidatVideo> Candidats() const;

  const QuestionsV4L2 Questions_;
  const Limites Limites_;
  mutable GuichetsNoeuds Guichets_;  // asking changes nothing but what is known of who is silent
};

}  // namespace vaktor
