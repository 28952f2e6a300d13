// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/driver/gst_driver.h"

#include <utility>

#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/choice/common_addresses.h"
#include "platform/capture/dialogs/format_dialog.h"
#include "platform/capture/dialogs/source_dialog.h"
#include "platform/capture/streams/capture_delays.h"
#include "platform/capture/streams/desktop_cameras.h"
#include "platform/capture/streams/gst_setup.h"
#include "platform/widgets/live_wait.h"
#include "texts/language.h"

namespace vaktor {
namespace {

using std::chrono::milliseconds;
using Delais = DelaisCapture;

}  // namespace

PiloteGStreamer::PiloteGStreamer(const QString& ou, MemoireCapture& memoire, std::function<Langue()> langue,
                                 QWidget* parent, std::function<void(const QString&)> note)
    : Ou_(ou), Memoire_(memoire), Langue_(std::move(langue)), Parent_(parent), Note_(std::move(note)) {
  Relecture_.setSingleShot(true);
  QObject::connect(&Relecture_, &QTimer::timeout, &Relecture_, [this] { ConnecteSansAttendre(); });
}

PiloteGStreamer::~PiloteGStreamer() {
  PiloteGStreamer::Deconnecte();
  AttendLesPartants(Delais::kPartants);
}

bool PiloteGStreamer::Connecte() {
  Image_ = ImageCamera();
  EnService_.reset();
  if (!ConnaitLaVoulue()) return ProposeSources();
  const quint64 tour = Tour_ + 1;
  if (Ouvre(DemandeVoulue(), Gestes::kLaisse)) return true;
  return Tour_ == tour && ProposeSources();
}

QuestionsV4L2 PiloteGStreamer::Questions() {
  QuestionsV4L2 questions;
  questions.Bureau = ListeCamerasBureau;
  return questions;
}

void PiloteGStreamer::ConnecteSansAttendre() {
  Image_ = ImageCamera();
  EnService_.reset();
  LaissePartir();
  ++Tour_;
  if (!ConnaitLaVoulue()) return Relecture_.start(Delais::kRelecture);
  SessionCapture::Demande demande = DemandeVoulue();
  demande.Persiste = true;
  demande.AvantUneAutre = Delais::kAvantUneAutre;
  LanceSession(std::move(demande));
}

// Where that cannot be read any other camera would look as if all were well.
bool PiloteGStreamer::ConnaitLaVoulue() {
  if (!Ou_.isEmpty()) return true;
  const QString empechement = Memoire_.Empechement();
  if (empechement.isEmpty()) return true;
  Source_ = {};
  const Raison raison{Motif::kMemoire, empechement};
  if (Note_ && !(raison == Raison_)) Note_(DitRaison(raison, Langue::kAnglais));
  Raison_ = raison;
  return false;
}

// The dialogs want a camera that runs, so that a remembered one that is gone for good could never be left, and a first
// start with one that only the desktop gives, or beside one that is taken, would have none. Nobody is asked where there
// is nothing else to choose: a device that is not there, and no other. Of an address or a film nobody
// but the user knows where it has gone to.
bool PiloteGStreamer::ProposeSources() {
  const QString retenue = Memoire_.Source();
  const bool inconnue = Raison_.Quoi == Motif::kMemoire;
  if (!inconnue && !EstRetenue()) return false;
  if (!inconnue && Source_.Genre == GenreSource::kPeripherique) {
    const std::optional<PeripheriqueVideo> elle = Acces_.Choisit(retenue);
    QList<PeripheriqueVideo> autres = Acces_.Peripheriques();
    autres.removeIf([&](const PeripheriqueVideo& p) { return elle && p.Noeud == elle->Noeud; });
    if (autres.isEmpty() && Acces_.CamerasDuBureau().isEmpty()) return false;
  }
  const Raison raison = Raison_;
  DialogueSource question(Parent_, Langue_(), *this, Memoire_, Acces_);
  Question_ = &question;
  question.DemandeAutreSource(MasqueAdresse(Source_.Description), raison);
  question.exec();
  if (Session_ && Session_->DonneDesImages()) return true;
  Raison_ = raison;  // of the camera that was asked for, not of what was tried in its place
  return false;
}

// A remembered device that is not there leaves its place to the only one that is; an address or a file does not.
SessionCapture::Demande PiloteGStreamer::DemandeVoulue() const {
  SessionCapture::Demande demande = DemandeDe(ComprendSource(Ou_.isEmpty() ? Memoire_.Source() : Ou_));
  demande.OuLaSeule = EstRetenue();
  return demande;
}

// Not one that was named at the start: whoever names it means it.
bool PiloteGStreamer::EstRetenue() const { return Ou_.isEmpty() || Ou_ == Memoire_.Source(); }

SessionCapture::Demande PiloteGStreamer::DemandeDe(const SourceCapture& source) const {
  SessionCapture::Demande demande;
  demande.Source = source;
  if (source.Genre != GenreSource::kTest) demande.Prepare = [] { PrepareGStreamer(); };
  if (Note_) {
    demande.Note = [note = Note_, secret = source.MotDePasse](QString ligne) {
      // A camera may repeat it in its own words.
      if (!secret.isEmpty()) ligne.replace(secret, MarqueMotDePasse());
      note(ligne);
    };
  }
  // A copy: the session may outlive the driver where the system hangs.
  demande.FormatRetenu = [memoire = Memoire_](const QString& nomStable) {
    return memoire.Format(nomStable).value_or(FormatCamera());
  };
  demande.EntreeRetenue = [memoire = Memoire_](const QString& nomStable) { return memoire.Entree(nomStable); };
  return demande;
}

Raison PiloteGStreamer::Pourquoi() const { return Raison_; }

QString PiloteGStreamer::Explication() const {
  const Raison raison = Session_ ? Session_->Pourquoi() : Raison_;
  return raison.Quoi == Motif::kInconnu ? QString() : DitRaison(raison, Langue_());
}

QString PiloteGStreamer::AutreCamera() const {
  return Session_ && Session_->EstAutre() ? NomPourGens(Acces_, NoeudPeripherique(), DescriptionSource()) : QString();
}

void PiloteGStreamer::LanceSession(SessionCapture::Demande demande) {
  Source_ = demande.Source;
  Numero_ = 0;
  Reprises_ = 0;
  EstReprise_ = false;
  Raison_ = {};
  Session_ = SessionCapture::Lance(std::move(demande), SessionCapture::FabriqueReelle(), Questions());
  Session_->Derniere().RelieSonnette(Ecoute_.Sonnette());
}

// The window lives while it waits, so that anything may happen in between, a closing of the program for one: what is
// true is looked at afterwards, and an opening that somebody has overtaken touches nothing more.
bool PiloteGStreamer::Ouvre(SessionCapture::Demande demande, Gestes gestes) {
  LaissePartir();
  const quint64 tour = ++Tour_;
  Abandon_ = false;
  const auto attend = [&](const std::function<bool()>& fait, milliseconds limite) {
    AttendVivant([&] { return tour != Tour_ || Abandon_ || fait(); }, limite, gestes);
    return tour == Tour_;
  };
  if (!attend([this] { return SontPartis(); }, Delais::kPartants)) return false;
  const bool persiste = demande.Persiste;
  const milliseconds limite = persiste ? Delais::kRetour : Delais::Connexion(demande.Source.Genre) + Delais::kPendue;
  LanceSession(std::move(demande));
  const std::shared_ptr<SessionCapture> session = Session_;
  attend([&] { return session->EstPrete(); }, Delais::kPreparation);
  if (!attend([&] { return session->DonneDesImages() || session->EstFinie(); }, limite)) return false;
  if (session->DonneDesImages() && !Abandon_) {
    Source_ = session->Source();
    return true;
  }
  Raison_ = session->Pourquoi();
  if (persiste) return false;
  LaissePartir();
  attend([this] { return SontPartis(); }, Delais::kPartants);
  return false;
}

void PiloteGStreamer::Abandonne() { Abandon_ = true; }

void PiloteGStreamer::Deconnecte() {
  ++Tour_;
  EnService_.reset();
  if (Question_) Question_->reject();
  LaissePartir();
  AttendLesPartants(Delais::kArret);
}

void PiloteGStreamer::LaissePartir() {
  Relecture_.stop();
  if (!Session_) return;
  Reveil_ = nullptr;
  Session_->Derniere().RelieSonnette(nullptr);
  Session_->Arrete(milliseconds(0));
  Partants_.push_back(std::move(Session_));
  Session_.reset();
}

bool PiloteGStreamer::AttendLesPartants(milliseconds limite) {
  const auto fin = DerniereImage::Horloge::now() + limite;
  std::erase_if(Partants_, [&](const std::shared_ptr<SessionCapture>& session) {
    const auto reste = std::chrono::duration_cast<milliseconds>(fin - DerniereImage::Horloge::now());
    return session->Arrete(std::max(reste, milliseconds(0)));
  });
  return Partants_.empty();
}

bool PiloteGStreamer::SontPartis() { return AttendLesPartants(milliseconds(0)); }

bool PiloteGStreamer::ImagePrete() const { return Session_ && Session_->Derniere().Numero() > Numero_; }

bool PiloteGStreamer::SaisitImage() {
  if (!Session_) return false;
  // The former picture is not let go before: it goes on being the one that is shown.
  DerniereImage::Arrivee arrivee = Session_->Derniere().Prend(Numero_);
  if (arrivee.Numero == 0) return false;
  Numero_ = arrivee.Numero;
  Image_ = std::move(arrivee.Image);
  // The first frame itself may have been overtaken by a newer one: what counts is that it was not taken.
  EstReprise_ = std::exchange(Reprises_, arrivee.Reprises) != arrivee.Reprises;
  Reveil_ = nullptr;
  return true;
}

void PiloteGStreamer::AttendImage(std::function<void()> reveil) {
  if (!Session_) return;
  Reveil_ = std::move(reveil);
  if (Reveil_) Session_->Derniere().Previens(Numero_);
}

// A ring may be late: of a frame that was taken meanwhile, or of a camera that another one has replaced.
void PiloteGStreamer::SuitSonnette() {
  if (!Session_ || !Reveil_) return;
  if (!ImagePrete()) return Session_->Derniere().Previens(Numero_);
  const std::function<void()> reveil = std::exchange(Reveil_, nullptr);
  reveil();
}

ImageCamera PiloteGStreamer::CopieTrame() const { return Image_; }

bool PiloteGStreamer::SignalPerdu() const { return !Session_ || Session_->Derniere().Perdu(); }

void PiloteGStreamer::MontreDialogueFormat() { DialogueFormat(Parent_, Langue_(), *this, Memoire_, Acces_).exec(); }

void PiloteGStreamer::MontreDialogueSource() { DialogueSource(Parent_, Langue_(), *this, Memoire_, Acces_).exec(); }

GenreSource PiloteGStreamer::Genre() const { return Source_.Genre; }

QString PiloteGStreamer::DescriptionSource() const {
  const QString noeud = NoeudPeripherique();
  return noeud.isEmpty() ? Source_.Description : noeud;
}

QString PiloteGStreamer::AdresseEnService() const { return AdresseComplete(Source_); }

QString PiloteGStreamer::NoeudPeripherique() const {
  return Session_ && Genre() == GenreSource::kPeripherique ? Session_->Noeud() : QString();
}

QString PiloteGStreamer::NomStable() const {
  return Session_ && Genre() == GenreSource::kPeripherique ? Session_->NomStable() : QString();
}

FormatCamera PiloteGStreamer::FormatCourant() const {
  return Session_ ? Session_->Derniere().Format() : FormatCamera();
}

// A session that has not given a frame yet is no more than a try: what was at work before it is still what is known.
void PiloteGStreamer::NoteEnService() {
  if (!Session_ || !Session_->DonneDesImages()) return;
  SessionCapture::Demande demande = DemandeDe(Source_);
  demande.Format = FormatCourant();
  if (!NomStable().isEmpty()) demande.Source.Lieu = NomStable();
  EnService_ = std::move(demande);
}

bool PiloteGStreamer::AppliqueFormat(const FormatCamera& format) {
  NoteEnService();
  if (!EnService_ || Genre() != GenreSource::kPeripherique) return false;
  SessionCapture::Demande nouvelle = *EnService_;
  nouvelle.Format = format;
  nouvelle.FormatImpose = true;
  const quint64 tour = Tour_;
  if (Ouvre(std::move(nouvelle), Gestes::kRetient)) return true;
  Reprend(tour);
  return false;
}

bool PiloteGStreamer::ChangeSource(const QString& source) {
  NoteEnService();
  const quint64 tour = Tour_;
  if (Ouvre(DemandeDe(ComprendSource(source)), Gestes::kLaisse)) {
    // A host that has been found is not looked for again.
    Ou_ = EstHoteSeul(source) ? AdresseEnService() : source;
    return true;
  }
  Reprend(tour);
  return false;
}

// One opening has been tried since `tour`. More than that, and the camera was let go meanwhile: it stays closed.
void PiloteGStreamer::Reprend(quint64 tour) {
  if (Tour_ != tour + 1 || !EnService_) return;
  const Raison raison = Raison_;
  SessionCapture::Demande ancienne = *EnService_;
  ancienne.Persiste = true;
  Ouvre(std::move(ancienne), Gestes::kRetient);
  Raison_ = raison;  // of what was asked for
}

}  // namespace vaktor
