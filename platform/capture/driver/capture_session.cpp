#include "platform/capture/driver/capture_session.h"

#include <QFileInfo>
#include <algorithm>

#include "platform/capture/devices/v4l2_device.h"
#include "platform/capture/streams/test_stream.h"

namespace vaktor {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kEntreEssais{2000};        // from the beginning of one to the beginning of the next
constexpr milliseconds kEntreLectures{200};       // of a file that cannot be played in a loop
constexpr milliseconds kDelaiPeripherique{4000};  // to a first frame
constexpr milliseconds kDelaiReseau{6000};
constexpr milliseconds kRepriseReseau{300};  // a camera that serves few has to let go of us before we come again
constexpr milliseconds kRegard{50};          // while a first frame is awaited

milliseconds DelaiPremiereImage(GenreSource genre) {
  return genre == GenreSource::kReseau ? kDelaiReseau : kDelaiPeripherique;
}

}  // namespace

SessionCapture::Fabrique SessionCapture::FabriqueReelle() {
  return [](BoiteImages& boite, const DemandeFlux& demande) -> std::unique_ptr<FluxImages> {
    if (demande.Source.Genre == GenreSource::kTest) return std::make_unique<FluxTest>(boite);
    return std::make_unique<FluxGStreamer>(boite, demande);
  };
}

std::shared_ptr<SessionCapture> SessionCapture::Lance(Demande demande, Fabrique fabrique, QuestionsV4L2 questions) {
  std::shared_ptr<SessionCapture> session(
      new SessionCapture(std::move(demande), std::move(fabrique), std::move(questions)));
  session->Fil_ = std::thread([session] { session->Deroule(); });
  return session;
}

SessionCapture::SessionCapture(Demande demande, Fabrique fabrique, QuestionsV4L2 questions)
    : Demande_(std::move(demande)),
      Fabrique_(std::move(fabrique)),
      Acces_(std::move(questions), AccesV4L2::Limites()) {}

SessionCapture::~SessionCapture() {
  if (Fil_.joinable()) Fil_.detach();
}

void SessionCapture::Deroule() {
  bool ouverte = false;
  SansSortir([&] { ouverte = OuvrePremiereFois(); });
  while ((ouverte || Demande_.Persiste) && !Arret_.stop_requested()) {
    SansSortir([this] {
      if (!Flux_) Rouvre();
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
    Patiente(Horloge::now() + kEntreEssais);
  }
}

bool SessionCapture::OuvrePremiereFois() {
  Retenue_.Source = Demande_.Source;
  Retenue_.Format = Demande_.Format;
  for (const DemandeFlux& candidat : Candidats()) {
    if (candidat.Udp) {
      // Nothing but the packets' way is different: who refused before that point refuses again, a password for one.
      if (!Decrit_) return false;
      Patiente(Horloge::now() + kRepriseReseau);
    }
    if (Arret_.stop_requested()) return false;
    Retenue_ = candidat;
    if (Essaie(candidat)) return true;
  }
  return false;
}

// One opening, to its first frame.
bool SessionCapture::Essaie(const DemandeFlux& demande) {
  DernierEssai_ = Horloge::now();
  const quint64 avant = Boite_.Numero();
  const auto limite = DernierEssai_ + DelaiPremiereImage(demande.Source.Genre);
  Flux_ = Fabrique_(Boite_, demande);
  if (Flux_->Ouvre()) {
    while (!Arret_.stop_requested() && Horloge::now() < limite) {
      const FluxImages::Etat etat = Flux_->Surveille(Arret_.get_token(), kRegard);
      if (Boite_.Numero() > avant) return true;
      if (etat != FluxImages::Etat::kCoule) break;
    }
  }
  Decrit_ = Flux_->EstDecrit();
  Flux_.reset();
  return false;
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
    Patiente(DernierEssai_ + (finDeFichier ? kEntreLectures : kEntreEssais));
    Rouvre(enBonOrdre);
  }
}

// A camera that stalls says nothing: only the age of its newest frame tells.
FluxImages::Etat SessionCapture::VeilleFlux() {
  while (!Arret_.stop_requested() && !Boite_.EstARouvrir()) {
    const milliseconds reste = Boite_.DelaiReouverture() - Boite_.Age();
    const FluxImages::Etat etat = Flux_->Surveille(Arret_.get_token(), std::max(reste, milliseconds(0)) + kRegard);
    if (etat != FluxImages::Etat::kCoule) return etat;
  }
  return FluxImages::Etat::kErreur;
}

// What is opened anew only because it has come to its end, a film or an address that gives one picture at a time, was
// never lost: its pictures are a series, and are compared. What does not open then was.
void SessionCapture::Rouvre(bool enBonOrdre) {
  for (bool perdue = !enBonOrdre; !Arret_.stop_requested(); perdue = true) {
    if (perdue) Boite_.NoteReprise();
    DernierEssai_ = Horloge::now();
    DemandeFlux demande = Retenue_;
    demande.AutreChemin = false;  // one way has been found to work: it is given all its time
    // After a replug the number can be another one; the stable name is not.
    if (demande.Source.Genre != GenreSource::kPeripherique || TrouvePeripherique(demande)) {
      if (Essaie(demande)) return;
    }
    Patiente(DernierEssai_ + kEntreEssais);
  }
}

QList<DemandeFlux> SessionCapture::Candidats() {
  DemandeFlux demande;
  demande.Source = Demande_.Source;
  if (demande.Source.Genre == GenreSource::kPeripherique) return CandidatsPeripherique(demande);
  if (!demande.Source.Lieu.startsWith(QLatin1String("rtsp"))) return {demande};
  // Within the connection first: it passes every router. A few cameras know nothing but UDP.
  DemandeFlux parUdp = demande;
  demande.AutreChemin = true;
  parUdp.Udp = true;
  return {demande, parUdp};
}

QList<DemandeFlux> SessionCapture::CandidatsPeripherique(DemandeFlux demande) {
  if (!TrouvePeripherique(demande)) return {};
  demande.Format = Demande_.Format;
  if (Demande_.FormatImpose) return {demande};
  if (demande.Format == FormatCamera() && Demande_.FormatRetenu) demande.Format = Demande_.FormatRetenu(NomStable());
  QList<DemandeFlux> candidats;
  if (demande.Format != FormatCamera()) candidats.append(demande);
  for (const FormatCamera& format : ListePremiersFormats(Acces_.Formats(demande.Noeud))) {
    demande.Format = format;
    if (candidats.isEmpty() || candidats.first().Format != format) candidats.append(demande);
  }
  return candidats;
}

bool SessionCapture::TrouvePeripherique(DemandeFlux& demande) {
  const QString connu = NomStable();
  const QString cherche = connu.isEmpty() ? demande.Source.Lieu : connu;
  std::optional<PeripheriqueVideo> trouve;
  if (!cherche.isEmpty()) trouve = Acces_.Retrouve(cherche);
  if (!trouve && connu.isEmpty() && (cherche.isEmpty() || Demande_.OuLePremier)) {
    const QList<PeripheriqueVideo> liste = Acces_.Peripheriques();
    if (!liste.isEmpty()) trouve = liste.first();
  }
  if (!trouve && connu.isEmpty() && QFileInfo::exists(cherche)) {
    // A node by its path, or by a link that the user made to it.
    const QString noeud = QFileInfo(cherche).canonicalFilePath();
    trouve = PeripheriqueVideo{noeud, {}, {}};
    for (const PeripheriqueVideo& candidat : Acces_.Peripheriques()) {
      if (candidat.Noeud == noeud) trouve = candidat;
    }
  }
  if (!trouve) return false;
  demande.Noeud = trouve->Noeud;
  const std::lock_guard verrou(Verrou_);
  Noeud_ = trouve->Noeud;
  NomStable_ = trouve->NomStable;
  return true;
}

void SessionCapture::Patiente(Horloge::time_point jusqua) {
  std::unique_lock verrou(Verrou_);
  Change_.wait_until(verrou, Arret_.get_token(), jusqua, [] { return false; });
}

bool SessionCapture::AttendPremiereImage(milliseconds limite) {
  const auto fin = Horloge::now() + limite;
  while (Horloge::now() < fin) {
    if (Boite_.Attend(0, kRegard).Numero > 0) return true;
    if (EstFinie()) return false;
  }
  return false;
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

QString SessionCapture::Noeud() const {
  const std::lock_guard verrou(Verrou_);
  return Noeud_;
}

QString SessionCapture::NomStable() const {
  const std::lock_guard verrou(Verrou_);
  return NomStable_;
}

}  // namespace vaktor
