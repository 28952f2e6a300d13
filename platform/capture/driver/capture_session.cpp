// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/driver/capture_session.h"

#include <algorithm>
#include <utility>

#include "platform/capture/choice/common_addresses.h"
#include "platform/capture/streams/capture_delays.h"
#include "platform/capture/streams/desktop_cameras.h"
#include "platform/capture/streams/reason_probe.h"
#include "platform/capture/streams/test_picture.h"

namespace vaktor {
namespace {

using std::chrono::milliseconds;
using Delais = DelaisCapture;

}  // namespace

SessionCapture::Fabrique SessionCapture::FabriqueReelle() {
  return [](DerniereImage& derniere, const DemandeFlux& demande) -> std::unique_ptr<FluxImages> {
    if (demande.Source.Genre == GenreSource::kTest) return std::make_unique<FluxTest>(derniere);
    return std::make_unique<FluxGStreamer>(derniere, demande);
  };
}

std::shared_ptr<SessionCapture> SessionCapture::Lance(Demande demande, Fabrique fabrique,
                                                      const QuestionsV4L2& questions) {
  std::shared_ptr<SessionCapture> session(new SessionCapture(std::move(demande), std::move(fabrique), questions));
  session->Fil_ = std::thread([session] { session->Deroule(); });
  return session;
}

SessionCapture::SessionCapture(Demande demande, Fabrique fabrique, const QuestionsV4L2& questions)
    : Demande_(std::move(demande)),
      Fabrique_(std::move(fabrique)),
      Derniere_(milliseconds(Demande_.Source.Genre == GenreSource::kReseau ? PerteSignal::kSansMesure
                                                                           : PerteSignal::kMinimum)),
      Acces_(questions, {.Liste = Delais::kListe, .Question = Delais::kFormats}),
      DossierNoeuds_(questions.Dossier) {}

SessionCapture::~SessionCapture() {
  if (Fil_.joinable()) Fil_.detach();
}

void SessionCapture::Deroule() {
  bool ouverte = false;
  SansSortir([this] {
    if (Demande_.Prepare) Demande_.Prepare();
  });
  Prete_ = true;
  SansSortir([&] { ouverte = EssaieTous(); });
  while ((ouverte || Demande_.Persiste) && !Arret_.stop_requested()) {
    SansSortir([this] {
      if (!Flux_) {
        Patiente(Horloge::now() + Delais::Pause(0, Pourquoi().Quoi));
        Rouvre();
      }
      Veille();
    });
  }
  Flux_.reset();
  const std::lock_guard verrou(Verrou_);
  Finie_ = true;
  Change_.notify_all();
}

// An exception that left this thread, want of memory for one, would end the program. It is taken for a camera that is
// lost: tried again like any other, or told as one that cannot be opened.
void SessionCapture::SansSortir(const std::function<void()>& quoi) {
  try {
    quoi();
  } catch (const std::exception&) {
    Flux_.reset();
    Patiente(Horloge::now() + Delais::Pause(0, Motif::kInconnu));
  }
}

// Whatever may lead to a picture, one after the other, within the time of one connection: first the way that has
// worked, then all of them, since what has worked may be gone for good.
bool SessionCapture::EssaieTous() {
  const auto fin = Horloge::now() + Delais::Connexion(Demande_.Source.Genre);
  const QList<DemandeFlux> candidats = Candidats();
  Raison raison;
  if (candidats.isEmpty()) raison = PourquoiAucun();
  for (qsizetype i = 0; i < candidats.size(); ++i) {
    const DemandeFlux& candidat = candidats.at(i);
    // Nobody would be given a moment, and the reason of the one before be lost.
    if (i > 0 && Horloge::now() >= fin) break;
    if (i > 0 && candidat.Udp != candidats.at(i - 1).Udp) {
      // Nothing but the packets' way is different: who refused before that point refuses again.
      if (!Decrit_) break;
      Patiente(Horloge::now() + Delais::kEntreChemins);
    }
    if (Arret_.stop_requested()) return false;
    const auto part = (fin - Horloge::now()) / (candidats.size() - i);
    const std::optional<Raison> sienne =
        Essaie(candidat, Horloge::now() + part, fin, candidats.last().Source == candidat.Source);
    if (!sienne) {
      Connait(candidat);
      return true;
    }
    if (sienne->Quoi != Motif::kInconnu) raison = *sienne;
    // Under another address the same login would be refused again, and the camera might lock ours.
    if (raison.Quoi == Motif::kMotDePasse) break;
  }
  Retient(Approfondit(raison));
  return false;
}

// One opening, to its first frame; else why there was none. Whose packets come is not given up before the end of all: a
// key frame may be seconds away. Nor is a network camera that has told nothing yet, where no other address follows.
std::optional<Raison> SessionCapture::Essaie(const DemandeFlux& demande, Horloge::time_point limite,
                                             Horloge::time_point fin, bool seuleAdresse) {
  DernierEssai_ = Horloge::now();
  const quint64 avant = Derniere_.Numero();
  {
    const std::lock_guard verrou(Verrou_);
    Essayee_ = demande.Source;
  }
  Derniere_.NoteOuverture();
  Flux_ = Fabrique_(Derniere_, demande);
  const bool reseau = demande.Source.Genre == GenreSource::kReseau;
  const auto seule = [&] { return Flux_->Recoit() || (reseau && seuleAdresse && !Flux_->EstDecrit()); };
  bool finie = !Flux_->Ouvre();
  while (!finie && !Arret_.stop_requested() && Horloge::now() < (seule() ? fin : limite)) {
    const FluxImages::Etat etat = Flux_->Surveille(Arret_.get_token(), Delais::kRegard);
    // An address that gives one picture at a time tells of its end, once, as soon as that is there.
    Vu_ = etat;
    if (Derniere_.Numero() > avant) return std::nullopt;
    finie = etat != FluxImages::Etat::kCoule;
  }
  Decrit_ = Flux_->EstDecrit();
  Raison raison = Flux_->Pourquoi();
  if (raison.Quoi == Motif::kInconnu && reseau) {
    if (Flux_->Recoit()) raison.Quoi = Motif::kSansImageEntiere;
    if (!Flux_->Recoit() && !finie) raison.Quoi = Motif::kMuette;
  }
  Flux_.reset();
  return raison;
}

// Where the elements say no more than that it did not work, or nothing at all.
Raison SessionCapture::Approfondit(const Raison& raison) const {
  if (Arret_.stop_requested()) return raison;
  if (EstUneCameraIci() && raison.Quoi == Motif::kInconnu) return {Motif::kSansImage, {}};
  if (Demande_.Source.Genre != GenreSource::kReseau) return raison;
  if (raison.Quoi != Motif::kInconnu && raison.Quoi != Motif::kMuette) return raison;
  const Raison chemin = SondeReseau(Essayee_, Arret_.get_token(), Delais::kSonde);
  return chemin.Quoi == Motif::kInconnu ? raison : chemin;
}

void SessionCapture::Retient(const Raison& raison) {
  Note(QStringLiteral("no picture: ") + DitRaison(raison, Langue::kAnglais));
  const std::lock_guard verrou(Verrou_);
  Raison_ = raison;
}

void SessionCapture::Connait(const DemandeFlux& demande) {
  Connue_ = demande;
  Guet_.reset();  // what is plugged in now is of no interest
  const auto duree = std::chrono::duration_cast<milliseconds>(Horloge::now() - DernierEssai_);
  if (!EnSerie_) Note(QStringLiteral("picture after %1 ms%2").arg(duree.count()).arg(demande.Udp ? ", by UDP" : ""));
  const std::lock_guard verrou(Verrou_);
  Connu_ = {demande.Noeud, {}, demande.NomStable};
  Autre_ = demande.Autre;
  Raison_ = {};
  Donnees_ = true;
}

void SessionCapture::Note(const QString& ligne) const {
  const QString qui = Demande_.Source.Description;
  if (Demande_.Note) Demande_.Note((qui.isEmpty() ? QStringLiteral("camera") : qui) + QStringLiteral(": ") + ligne);
}

void SessionCapture::Veille() {
  while (!Arret_.stop_requested()) {
    const FluxImages::Etat etat = VeilleFlux();
    if (Arret_.stop_requested()) return;
    // Released before anything else is opened: a dead device node stays taken as long as somebody holds it.
    Flux_.reset();
    // A camera on this machine has no end of its own: one that says so was pulled out.
    const bool enBonOrdre = etat == FluxImages::Etat::kFini && !EstUneCameraIci();
    // Of a series once: two lines for each of its pictures would leave nothing else in the log.
    if (!std::exchange(EnSerie_, enBonOrdre) || !enBonOrdre)
      Note(etat == FluxImages::Etat::kFini ? QStringLiteral("at its end") : QStringLiteral("lost"));
    const bool finDeFichier = enBonOrdre && Demande_.Source.Genre == GenreSource::kFichier;
    Patiente(DernierEssai_ + (finDeFichier ? Delais::kEntreLectures : Delais::Pause(0, Motif::kInconnu)));
    Rouvre(enBonOrdre);
  }
}

// A camera that stalls says nothing: only the age of its newest frame tells.
FluxImages::Etat SessionCapture::VeilleFlux() {
  if (Vu_ != FluxImages::Etat::kCoule) return Vu_;
  while (!Arret_.stop_requested() && !Derniere_.Perdu()) {
    // Looked at more often than it can be: the age that is waited for grows shorter with the first gaps that are known.
    const milliseconds reste = std::clamp(Derniere_.DelaiPerte() - Derniere_.Age(), milliseconds(0), Delais::kVeille);
    const FluxImages::Etat etat = Flux_->Surveille(Arret_.get_token(), reste + Delais::kRegard);
    if (etat != FluxImages::Etat::kCoule) return etat;
  }
  return FluxImages::Etat::kErreur;
}

// What is opened anew only because it has come to its end, a film or an address that gives one picture at a time, was
// never lost: its pictures are a series, and are compared. What does not open then was.
void SessionCapture::Rouvre(bool enBonOrdre) {
  Eveil_ = Horloge::now() + Delais::kApresBranchement;
  bool perdue = !enBonOrdre;
  for (int echecs = 1; !Arret_.stop_requested(); ++echecs) {
    if (std::exchange(perdue, true)) {
      Derniere_.NoteReprise();
      EnSerie_ = false;
    }
    DernierEssai_ = Horloge::now();
    Introuvable_ = false;
    if (EssaieTous()) return;
    if (Introuvable_) {
      AttendBranchement();
      echecs = 0;  // what comes then is a camera that was just plugged in
    } else {
      Patiente(Horloge::now() + Delais::Pause(echecs, Pourquoi().Quoi));
    }
  }
}

QList<DemandeFlux> SessionCapture::Candidats() {
  DemandeFlux demande;
  demande.Source = Connue_ ? Connue_->Source : Demande_.Source;
  if (demande.Source.Genre == GenreSource::kPeripherique) return CandidatsPeripherique(demande);
  if (demande.Source.Genre == GenreSource::kBureau && !EstDonneeParLeBureau(demande.Source.Lieu)) return {};
  QList<DemandeFlux> parHote = CandidatsReseau(demande.Source);
  if (parHote.size() > 1) return parHote;
  if (!demande.Source.Lieu.startsWith(QLatin1String("rtsp"))) return {demande};
  // Within the connection first: it passes every router. A few cameras know nothing but UDP.
  DemandeFlux parUdp = demande;
  parUdp.Udp = true;
  return Connue_ && Connue_->Udp ? QList{parUdp, demande} : QList{demande, parUdp};
}

// Asked before it is opened: PipeWire keeps whoever wants a camera that it does not have waiting for half a minute.
bool SessionCapture::EstDonneeParLeBureau(const QString& lieu) const {
  const QList<CameraBureau> cameras = Acces_.CamerasDuBureau();
  return std::any_of(cameras.begin(), cameras.end(), [&](const CameraBureau& c) { return c.Source == lieu; });
}

Raison SessionCapture::PourquoiAucun() const {
  if (Demande_.Source.Genre != GenreSource::kBureau) return Acces_.PourquoiAucune();
  return PourquoiPasDuBureau(Demande_.Source.Lieu);
}

bool SessionCapture::EstUneCameraIci() const {
  const GenreSource genre = Demande_.Source.Genre;
  return genre == GenreSource::kPeripherique || genre == GenreSource::kBureau;
}

// A host without a path: what the common makers call theirs, each within its connection. Whoever refuses one of them,
// or knows it and stays silent, has the others to come.
QList<DemandeFlux> SessionCapture::CandidatsReseau(const SourceCapture& hote) {
  QList<DemandeFlux> candidats;
  for (const SourceCapture& source : AdressesPossibles(hote)) {
    DemandeFlux demande;
    demande.Source = source;
    candidats.append(demande);
  }
  return candidats;
}

// After a replug the number can be another one; the stable name is not. At another port it may offer other formats.
QList<DemandeFlux> SessionCapture::CandidatsPeripherique(DemandeFlux demande) {
  if (Connue_) demande.NomStable = Connue_->NomStable;
  if (!TrouvePeripherique(demande)) return {};
  QList<FormatCamera> formats;
  if (Connue_) formats.append(Connue_->Format);
  if (Demande_.Format != FormatCamera()) formats.append(Demande_.Format);
  if (formats.isEmpty() && Demande_.FormatRetenu) {
    const FormatCamera retenu = Demande_.FormatRetenu(demande.NomStable);
    if (retenu != FormatCamera()) formats.append(retenu);
  }
  if (Connue_ || !Demande_.FormatImpose) formats += ListePremiersFormats(Acces_.Formats(demande.Noeud));
  QList<DemandeFlux> candidats;
  for (const FormatCamera& format : std::as_const(formats)) {
    demande.Format = format;
    if (!candidats.contains(demande)) candidats.append(demande);
  }
  return candidats;
}

// Before anything is opened: what is plugged in behind this look is told by the watch.
bool SessionCapture::TrouvePeripherique(DemandeFlux& demande) {
  if (Derniere_.Numero() > 0 || Demande_.Persiste) {
    if (!Guet_) Guet_ = std::make_unique<GuetNoeuds>(DossierNoeuds_);
  }
  const std::optional<PeripheriqueVideo> trouve = ChoisitPeripherique(demande);
  // A driver that hangs is asked nothing more, and tells of its end by no event.
  Introuvable_ = !trouve && Acces_.Muets().isEmpty();
  if (!trouve) return false;
  demande.Noeud = trouve->Noeud;
  demande.NomStable = trouve->NomStable;
  RegleEntree(demande);
  return true;
}

// The standards are those of the input: it comes first.
void SessionCapture::RegleEntree(const DemandeFlux& demande) {
  const EntreeCamera entree = Demande_.EntreeRetenue ? Demande_.EntreeRetenue(demande.NomStable) : EntreeCamera();
  if (entree.Entree) Acces_.Regle(demande.Noeud, kReglageEntree, *entree.Entree);
  if (entree.Norme) Acces_.Regle(demande.Noeud, kReglageNorme, *entree.Norme);
}

std::optional<PeripheriqueVideo> SessionCapture::ChoisitPeripherique(DemandeFlux& demande) {
  if (!demande.NomStable.isEmpty()) {
    demande.Autre = EstAutre();
    return Acces_.Retrouve(demande.NomStable);
  }
  std::optional<PeripheriqueVideo> voulu = Acces_.Choisit(demande.Source.Lieu);
  if (voulu || !Demande_.OuLaSeule || Horloge::now() - Debut_ < Demande_.AvantUneAutre) return voulu;
  demande.Autre = true;
  return Acces_.LaSeule();
}

void SessionCapture::Patiente(Horloge::time_point jusqua) {
  std::unique_lock verrou(Verrou_);
  Change_.wait_until(verrou, Arret_.get_token(), jusqua, [] { return false; });
}

// Opening all nodes each two seconds would wake cameras that others use, for as long as this one lies in a drawer.
void SessionCapture::AttendBranchement() {
  const auto maintenant = Horloge::now();
  const auto suivant = DernierEssai_ + Delais::Pause(0, Motif::kInconnu);
  if (maintenant < Eveil_ || !Guet_ || !Guet_->EstOuvert()) return Patiente(suivant);
  if (!Guet_->Attend(Arret_.get_token(), Delais::kRonde)) return;
  Eveil_ = Horloge::now() + Delais::kApresBranchement;
  Patiente(std::max(suivant, Horloge::now() + Delais::kEntreLectures));
}

bool SessionCapture::EstFinie() const {
  const std::lock_guard verrou(Verrou_);
  return Finie_;
}

bool SessionCapture::Arrete(milliseconds limite) {
  Arret_.request_stop();
  {
    std::unique_lock verrou(Verrou_);
    if (!Change_.wait_for(verrou, limite, [this] { return Finie_; })) return false;
  }
  if (Fil_.joinable()) Fil_.join();
  return true;
}

SourceCapture SessionCapture::Source() const {
  const std::lock_guard verrou(Verrou_);
  return Essayee_;
}

Raison SessionCapture::Pourquoi() const {
  const std::lock_guard verrou(Verrou_);
  return Raison_;
}

bool SessionCapture::EstAutre() const {
  const std::lock_guard verrou(Verrou_);
  return Autre_;
}

QString SessionCapture::Noeud() const {
  const std::lock_guard verrou(Verrou_);
  return Connu_.Noeud;
}

QString SessionCapture::NomStable() const {
  const std::lock_guard verrou(Verrou_);
  return Connu_.NomStable;
}

}  // namespace vaktor
