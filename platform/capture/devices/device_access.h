// SPDX-License-Identifier: GPL-3.0-or-later
// The way to the devices: asked so that none of them can hold who asks, and watched for what is plugged in. The dialogs
// know it as an interface, so that they can be tried without any.
#pragma once

#include <QObject>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>

#include "platform/capture/choice/capture_reason.h"
#include "platform/capture/devices/node_desk.h"
#include "platform/capture/devices/v4l2_device.h"

namespace vaktor {

/// The folder of the device nodes, watched by the kernel (inotify) from the construction on. For one thread at a time.
class GuetNoeuds {
 public:
  /// `departs`: also of nodes that go.
  explicit GuetNoeuds(const QString& dossier, bool departs = false);
  ~GuetNoeuds();
  GuetNoeuds(const GuetNoeuds&) = delete;
  GuetNoeuds& operator=(const GuetNoeuds&) = delete;

  /// False where the system gives no watch: nothing will ever be told.
  bool EstOuvert() const { return Inotify_ >= 0 && Reveil_ >= 0; }
  /// True as soon as a video node has come, or has got other rights, since the last call. False at the end of the time,
  /// or when a stop is asked for.
  bool Attend(const std::stop_token& arret, std::chrono::milliseconds limite);
  /// For whoever has an event loop: becomes readable with each event; LitEvenements then takes them, and says whether
  /// one of them told of a video node.
  int Descripteur() const { return Inotify_; }
  bool LitEvenements();

 private:
  int Inotify_ = -1;
  int Reveil_ = -1;
};

class AccesPeripheriques {
 public:
  virtual ~AccesPeripheriques() = default;
  virtual QList<PeripheriqueVideo> Peripheriques() const = 0;
  virtual QList<FormatCamera> Formats(const QString& noeud) const = 0;
  virtual QList<ReglageCamera> Reglages(const QString& noeud) const = 0;
  virtual bool Regle(const QString& noeud, quint32 numero, qint32 valeur) = 0;
  /// Those that the desktop hands out, beside the devices.
  virtual QList<CameraBureau> CamerasDuBureau() const { return {}; }
  /// Nodes that leave a question unanswered at this moment: what is empty or refused above may be so because of that.
  virtual QStringList Muets() const { return {}; }
  /// Calls `change` on this thread, out of the event loop, when cameras were plugged in or out, for as long as what it
  /// gives lives. Null where nobody tells.
  virtual std::unique_ptr<QObject> SuitBranchements(std::function<void()> change) const = 0;
};

/// The group that may open this node, "video" as long as it is root's own; empty where it is not there.
QString NomGroupe(const QString& noeud);

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
  std::function<QList<CameraBureau>()> Bureau;  ///< empty: no desktop is asked
  QString Dossier = QStringLiteral("/dev");     ///< where the nodes come and go
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
  /// The one that `cherche` names: by its stable name, else by its node's path or a link that the user made to it.
  /// Where nothing is named, the first one that answers.
  std::optional<PeripheriqueVideo> Choisit(const QString& cherche) const;
  /// The camera that answers, where it is the only one: nobody has to be asked which one to take instead of another.
  std::optional<PeripheriqueVideo> LaSeule() const;
  /// Why there is none: a node is there and its user may not open it (the detail is its group), or none is plugged in.
  Raison PourquoiAucune() const;
  /// All video nodes, cameras or not. Opens none.
  QStringList Noeuds() const { return Questions_.Noeuds(); }
  QList<FormatCamera> Formats(const QString& noeud) const override;
  QList<ReglageCamera> Reglages(const QString& noeud) const override;
  bool Regle(const QString& noeud, quint32 numero, qint32 valeur) override;
  QList<CameraBureau> CamerasDuBureau() const override;
  QStringList Muets() const override { return Guichets_.Muets(); }
  std::unique_ptr<QObject> SuitBranchements(std::function<void()> change) const override;

 private:
  QList<CandidatVideo> Candidats() const;

  const QuestionsV4L2 Questions_;
  const Limites Limites_;
  mutable GuichetsNoeuds Guichets_;  // asking changes nothing but what is known of who is silent
};

}  // namespace vaktor
