// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/driver/capture_session.h"

#include <algorithm>

#include "platform/capture/choice/common_addresses.h"
#include "platform/capture/streams/capture_delays.h"
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
        Patiente(DernierEssai_ + Delais::kEntreEssais);
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
    Patiente(Horloge::now() + Delais::kEntreEssais);
  }
}

// Whatever may lead to a picture, one after the other, within the time of one connection.
bool SessionCapture::EssaieTous() {
  const auto fin = Horloge::now() + Delais::kConnexion;
  const QList<DemandeFlux> candidats = Candidats();
  for (const DemandeFlux& candidat : candidats) {
    if (candidat.Udp) {
      // Nothing but the packets' way is different: who refused before that point refuses again, a password for one.
      if (!Decrit_) return false;
      Patiente(Horloge::now() + Delais::kEntreChemins);
    }
    if (Arret_.stop_requested()) return false;
    const bool dernier = &candidat == &candidats.last();
    if (!Essaie(candidat, dernier ? fin : std::min(fin, Horloge::now() + Delais::kPremierDePlusieurs))) continue;
    Connait(candidat);
    return true;
  }
  return false;
}

// One opening, to its first frame.
bool SessionCapture::Essaie(const DemandeFlux& demande, Horloge::time_point limite) {
  DernierEssai_ = Horloge::now();
  const quint64 avant = Derniere_.Numero();
  {
    const std::lock_guard verrou(Verrou_);
    Essayee_ = demande.Source;
  }
  Flux_ = Fabrique_(Derniere_, demande);
  if (Flux_->Ouvre()) {
    while (!Arret_.stop_requested() && Horloge::now() < limite) {
      const FluxImages::Etat etat = Flux_->Surveille(Arret_.get_token(), Delais::kRegard);
      if (Derniere_.Numero() > avant) return true;
      if (etat != FluxImages::Etat::kCoule) break;
    }
  }
  Decrit_ = Flux_->EstDecrit();
  SansDecodeur_ = Flux_->EstSansDecodeur();
  Flux_.reset();
  return false;
}

void SessionCapture::Connait(const DemandeFlux& demande) {
  Connue_ = demande;
  Guet_.reset();                 // what is plugged in now is of no interest
  Connue_->AutreChemin = false;  // one way has been found to work: it is given all its time
  const std::lock_guard verrou(Verrou_);
  Connu_ = {demande.Noeud, {}, demande.NomStable};
}

void SessionCapture::Veille() {
  while (!Arret_.stop_requested()) {
    const FluxImages::Etat etat = VeilleFlux();
    if (Arret_.stop_requested()) return;
    // Released before anything else is opened: a dead device node stays taken as long as somebody holds it.
    Flux_.reset();
    // A device has no end of its own: one that says so was pulled out.
    const bool enBonOrdre = etat == FluxImages::Etat::kFini && Demande_.Source.Genre != GenreSource::kPeripherique;
    const bool finDeFichier = enBonOrdre && Demande_.Source.Genre == GenreSource::kFichier;
    Patiente(DernierEssai_ + (finDeFichier ? Delais::kEntreLectures : Delais::kEntreEssais));
    Rouvre(enBonOrdre);
  }
}

// A camera that stalls says nothing: only the age of its newest frame tells.
FluxImages::Etat SessionCapture::VeilleFlux() {
  while (!Arret_.stop_requested() && !Derniere_.EstARouvrir()) {
    const milliseconds reste = Derniere_.DelaiReouverture() - Derniere_.Age();
    const FluxImages::Etat etat =
        Flux_->Surveille(Arret_.get_token(), std::max(reste, milliseconds(0)) + Delais::kRegard);
    if (etat != FluxImages::Etat::kCoule) return etat;
  }
  return FluxImages::Etat::kErreur;
}

// What is opened anew only because it has come to its end, a film or an address that gives one picture at a time, was
// never lost: its pictures are a series, and are compared. What does not open then was.
void SessionCapture::Rouvre(bool enBonOrdre) {
  Eveil_ = Horloge::now() + Delais::kApresBranchement;
  for (bool perdue = !enBonOrdre; !Arret_.stop_requested(); perdue = true) {
    if (perdue) Derniere_.NoteReprise();
    DernierEssai_ = Horloge::now();
    Introuvable_ = false;
    if (Connue_ ? EssaieConnue() : EssaieTous()) return;
    if (Introuvable_) {
      AttendBranchement();
    } else {
      Patiente(DernierEssai_ + Delais::kEntreEssais);
    }
  }
}

bool SessionCapture::EssaieConnue() {
  DemandeFlux demande = *Connue_;
  // After a replug the number can be another one; the stable name is not.
  if (demande.Source.Genre == GenreSource::kPeripherique && !TrouvePeripherique(demande)) return false;
  if (!Essaie(demande, Horloge::now() + Delais::kReouverture)) return false;
  Connait(demande);
  return true;
}

QList<DemandeFlux> SessionCapture::Candidats() {
  DemandeFlux demande;
  demande.Source = Demande_.Source;
  if (demande.Source.Genre == GenreSource::kPeripherique) return CandidatsPeripherique(demande);
  const QList<DemandeFlux> parHote = CandidatsReseau();
  if (parHote.size() > 1) return parHote;
  if (!demande.Source.Lieu.startsWith(QLatin1String("rtsp"))) return {demande};
  // Within the connection first: it passes every router. A few cameras know nothing but UDP.
  DemandeFlux parUdp = demande;
  demande.AutreChemin = true;
  parUdp.Udp = true;
  return {demande, parUdp};
}

// A host without a path: what the common makers call theirs, each within its connection. Whoever refuses one of them,
// or knows it and stays silent, has the others to come.
QList<DemandeFlux> SessionCapture::CandidatsReseau() const {
  QList<DemandeFlux> candidats;
  for (const SourceCapture& source : AdressesPossibles(Demande_.Source)) {
    DemandeFlux demande;
    demande.Source = source;
    demande.AutreChemin = true;
    candidats.append(demande);
  }
  return candidats;
}

QList<DemandeFlux> SessionCapture::CandidatsPeripherique(DemandeFlux demande) {
  if (!TrouvePeripherique(demande)) return {};
  demande.Format = Demande_.Format;
  if (Demande_.FormatImpose) return {demande};
  if (demande.Format == FormatCamera() && Demande_.FormatRetenu) {
    demande.Format = Demande_.FormatRetenu(demande.NomStable);
  }
  QList<DemandeFlux> candidats;
  if (demande.Format != FormatCamera()) candidats.append(demande);
  for (const FormatCamera& format : ListePremiersFormats(Acces_.Formats(demande.Noeud))) {
    demande.Format = format;
    if (candidats.isEmpty() || candidats.first().Format != format) candidats.append(demande);
  }
  return candidats;
}

// Before anything is opened: what is plugged in behind this look is told by the watch.
bool SessionCapture::TrouvePeripherique(DemandeFlux& demande) {
  if (Derniere_.Numero() > 0 || Demande_.Persiste) {
    if (!Guet_) Guet_ = std::make_unique<GuetNoeuds>(DossierNoeuds_);
  }
  const std::optional<PeripheriqueVideo> trouve = demande.NomStable.isEmpty()
                                                      ? Acces_.Choisit(demande.Source.Lieu, Demande_.OuLePremier)
                                                      : Acces_.Retrouve(demande.NomStable);
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

void SessionCapture::Patiente(Horloge::time_point jusqua) {
  std::unique_lock verrou(Verrou_);
  Change_.wait_until(verrou, Arret_.get_token(), jusqua, [] { return false; });
}

// Opening all nodes each two seconds would wake cameras that others use, for as long as this one lies in a drawer.
void SessionCapture::AttendBranchement() {
  const auto maintenant = Horloge::now();
  if (maintenant < Eveil_ || !Guet_ || !Guet_->EstOuvert()) return Patiente(DernierEssai_ + Delais::kEntreEssais);
  if (!Guet_->Attend(Arret_.get_token(), Delais::kRonde)) return;
  Eveil_ = Horloge::now() + Delais::kApresBranchement;
  Patiente(std::max(DernierEssai_ + Delais::kEntreEssais, Horloge::now() + Delais::kEntreLectures));
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

QString SessionCapture::Noeud() const {
  const std::lock_guard verrou(Verrou_);
  return Connu_.Noeud;
}

QString SessionCapture::NomStable() const {
  const std::lock_guard verrou(Verrou_);
  return Connu_.NomStable;
}

}  // namespace vaktor
