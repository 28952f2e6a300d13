#include "platform/capture/gst_driver.h"

#include "platform/capture/capture_memory.h"
#include "platform/capture/driver_dialogs.h"
#include "platform/capture/v4l2_device.h"

namespace vaktor {
namespace {

using std::chrono::milliseconds;

// A camera of ten frames a second must not be missed by a hair, again and again: each miss is an analysis for nothing.
constexpr milliseconds kAttenteImage{110};
constexpr milliseconds kLimiteConnexion{5000};
constexpr milliseconds kLimiteArret{300};      // of what the window may feel
constexpr milliseconds kLimitePartants{2000};  // before a device that may still be held is opened again

}  // namespace

PiloteGStreamer::PiloteGStreamer(const QString& ou, MemoireCapture& memoire, std::function<qint32()> langue,
                                 QWidget* parent)
    : Ou_(ou), Memoire_(memoire), Langue_(std::move(langue)), Parent_(parent) {}

PiloteGStreamer::~PiloteGStreamer() {
  PiloteGStreamer::Deconnecte();
  AttendLesPartants(kLimitePartants);
}

bool PiloteGStreamer::Connecte() {
  Image_ = QImage();
  return Ouvre(DemandeDe(SourceVoulue()));
}

// A remembered device that is not there leaves its place to the first one that is; an address or a file does not.
SourceCapture PiloteGStreamer::SourceVoulue() const {
  if (!Ou_.isEmpty()) return ComprendSource(Ou_);
  const QString retenue = Memoire_.Source();
  const SourceCapture source = ComprendSource(retenue);
  if (source.Genre == GenreSource::kPeripherique && !RetrouvePeripherique(source.Lieu)) return ComprendSource({});
  return source;
}

SessionCapture::Demande PiloteGStreamer::DemandeDe(const SourceCapture& source) const {
  SessionCapture::Demande demande;
  demande.Source = source;
  // A copy: the session may outlive the driver where the system hangs.
  demande.FormatRetenu = [memoire = Memoire_](const QString& nomStable) {
    return memoire.Format(nomStable).value_or(FormatCamera());
  };
  return demande;
}

bool PiloteGStreamer::Ouvre(SessionCapture::Demande demande) {
  LaissePartir();
  AttendLesPartants(kLimitePartants);
  Source_ = demande.Source;
  Numero_ = 0;
  const bool persiste = demande.Persiste;
  Session_ = SessionCapture::Lance(std::move(demande));
  if (Session_->AttendPremiereImage(kLimiteConnexion)) return true;
  if (persiste) return false;
  LaissePartir();
  AttendLesPartants(kLimitePartants);
  return false;
}

void PiloteGStreamer::Deconnecte() {
  LaissePartir();
  AttendLesPartants(kLimiteArret);
}

void PiloteGStreamer::LaissePartir() {
  if (!Session_) return;
  Session_->Arrete(milliseconds(0));
  Partants_.push_back(std::move(Session_));
  Session_.reset();
}

bool PiloteGStreamer::AttendLesPartants(milliseconds limite) {
  const auto fin = BoiteImages::Horloge::now() + limite;
  std::erase_if(Partants_, [&](const std::shared_ptr<SessionCapture>& session) {
    const auto reste = std::chrono::duration_cast<milliseconds>(fin - BoiteImages::Horloge::now());
    return session->Arrete(std::max(reste, milliseconds(0)));
  });
  return Partants_.empty();
}

bool PiloteGStreamer::SaisitImage() {
  if (!Session_) return false;
  // The former picture is not let go before: it goes on being the one that is shown.
  BoiteImages::Arrivee arrivee = Session_->Boite().Attend(Numero_, kAttenteImage);
  if (arrivee.Numero == 0) return false;
  Numero_ = arrivee.Numero;
  Image_ = std::move(arrivee.Image);
  return true;
}

QImage PiloteGStreamer::CopieImage() const { return Image_; }

bool PiloteGStreamer::SignalPerdu() const { return Session_ && Session_->Boite().Perdu(); }

void PiloteGStreamer::MontreDialogueFormat() { MontreDialogueFormatCapture(Parent_, Langue_(), *this, Memoire_); }

void PiloteGStreamer::MontreDialogueSource() { MontreDialogueSourceCapture(Parent_, Langue_(), *this, Memoire_); }

GenreSource PiloteGStreamer::Genre() const { return Source_.Genre; }

QString PiloteGStreamer::DescriptionSource() const {
  return Genre() == GenreSource::kPeripherique ? NoeudPeripherique() : Source_.Description;
}

QString PiloteGStreamer::NoeudPeripherique() const {
  return Session_ && Genre() == GenreSource::kPeripherique ? Session_->Noeud() : QString();
}

QString PiloteGStreamer::NomStable() const {
  return Session_ && Genre() == GenreSource::kPeripherique ? Session_->NomStable() : QString();
}

FormatCamera PiloteGStreamer::FormatCourant() const { return Session_ ? Session_->Boite().Format() : FormatCamera(); }

bool PiloteGStreamer::AppliqueFormat(const FormatCamera& format) {
  if (!Session_ || Genre() != GenreSource::kPeripherique) return false;
  SessionCapture::Demande ancienne = DemandeDe(Source_);
  ancienne.Format = FormatCourant();
  if (!NomStable().isEmpty()) ancienne.Source.Lieu = NomStable();
  SessionCapture::Demande nouvelle = ancienne;
  nouvelle.Format = format;
  nouvelle.FormatImpose = true;
  ancienne.Persiste = true;
  if (Ouvre(std::move(nouvelle))) return true;
  Ouvre(std::move(ancienne));
  return false;
}

bool PiloteGStreamer::ChangeSource(const QString& source) {
  const bool ouvert = Session_ != nullptr;
  SessionCapture::Demande ancienne = DemandeDe(Source_);
  ancienne.Format = FormatCourant();
  if (!NomStable().isEmpty()) ancienne.Source.Lieu = NomStable();
  if (Ouvre(DemandeDe(ComprendSource(source)))) {
    Ou_ = source;
    return true;
  }
  ancienne.Persiste = true;
  if (ouvert) Ouvre(std::move(ancienne));
  return false;
}

}  // namespace vaktor
