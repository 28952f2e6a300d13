// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/devices/device_access.h"

#include <fcntl.h>
#include <grp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace vaktor {
namespace {

// The kernel makes a node, the rights come after it; a link may be moved to its place.
constexpr uint32_t kEvenements = IN_CREATE | IN_ATTRIB | IN_MOVED_TO;
// Of one camera several tell, one after the other; what is asked before the last of them is asked in vain.
constexpr std::chrono::milliseconds kRepos{500};

class SuiviNoeuds : public QObject {
 public:
  SuiviNoeuds(const QString& dossier, std::function<void()> change) : Guet_(dossier, true) {
    Repos_.setSingleShot(true);
    Repos_.setInterval(kRepos);
    connect(&Repos_, &QTimer::timeout, this, std::move(change));
    if (!Guet_.EstOuvert()) return;
    Avis_ = std::make_unique<QSocketNotifier>(Guet_.Descripteur(), QSocketNotifier::Read);
    connect(Avis_.get(), &QSocketNotifier::activated, this, [this] {
      if (Guet_.LitEvenements()) Repos_.start();
    });
  }

 private:
  GuetNoeuds Guet_;
  std::unique_ptr<QSocketNotifier> Avis_;
  QTimer Repos_;
};

}  // namespace

QString NomGroupe(const QString& noeud) {
  struct stat etat = {};
  if (::stat(QFile::encodeName(noeud).constData(), &etat) != 0) return {};
  // A camera that has just been plugged in is root's until the system hands it to its group; nobody is to join root's.
  if (etat.st_gid == 0) return QStringLiteral("video");
  group lu = {};
  group* trouve = nullptr;
  std::array<char, 4096> place{};
  ::getgrgid_r(etat.st_gid, &lu, place.data(), place.size(), &trouve);
  return trouve == nullptr ? QString::number(etat.st_gid) : QString::fromLocal8Bit(trouve->gr_name);
}

GuetNoeuds::GuetNoeuds(const QString& dossier, bool departs)
    : Inotify_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)), Reveil_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {
  const uint32_t evenements = departs ? kEvenements | IN_DELETE : kEvenements;
  if (Inotify_ < 0 || ::inotify_add_watch(Inotify_, QFile::encodeName(dossier).constData(), evenements) >= 0) return;
  ::close(Inotify_);
  Inotify_ = -1;
}

GuetNoeuds::~GuetNoeuds() {
  if (Inotify_ >= 0) ::close(Inotify_);
  if (Reveil_ >= 0) ::close(Reveil_);
}

bool GuetNoeuds::Attend(const std::stop_token& arret, std::chrono::milliseconds limite) {
  if (!EstOuvert()) return false;
  const std::stop_callback reveille(arret, [this] { ::eventfd_write(Reveil_, 1); });
  const auto fin = std::chrono::steady_clock::now() + limite;
  while (!arret.stop_requested()) {
    const auto reste = std::chrono::ceil<std::chrono::milliseconds>(fin - std::chrono::steady_clock::now());
    if (reste.count() <= 0) return false;
    std::array<pollfd, 2> qui{{{Inotify_, POLLIN, 0}, {Reveil_, POLLIN, 0}}};
    if (::poll(qui.data(), qui.size(), static_cast<int>(reste.count())) > 0 && LitEvenements()) return true;
  }
  return false;
}

// Everything that is there; what /dev has besides video nodes comes and goes all the time. Events that the kernel had
// no room for may have told of one.
bool GuetNoeuds::LitEvenements() {
  alignas(inotify_event) std::array<char, 4096> tampon{};
  bool video = false;
  for (ssize_t lus = 0; (lus = ::read(Inotify_, tampon.data(), tampon.size())) > 0;) {
    for (std::size_t ici = 0; ici < static_cast<std::size_t>(lus);) {
      inotify_event evenement{};
      std::memcpy(&evenement, tampon.data() + ici, sizeof evenement);
      const char* nom = tampon.data() + ici + sizeof evenement;
      const bool perdus = (evenement.mask & IN_Q_OVERFLOW) != 0;
      video = video || perdus || (evenement.len > 0 && std::strncmp(nom, "video", 5) == 0);
      ici += sizeof evenement + evenement.len;
    }
  }
  return video;
}

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

std::optional<PeripheriqueVideo> AccesV4L2::Choisit(const QString& cherche) const {
  const QList<CandidatVideo> candidats = Candidats();
  const QList<PeripheriqueVideo> liste = NommePeripheriques(candidats);
  if (auto trouve = RetrouveParmi(candidats, cherche)) return trouve;
  if (cherche.isEmpty() && !liste.isEmpty()) return liste.first();
  if (cherche.isEmpty() || !QFileInfo::exists(cherche)) return std::nullopt;
  const QString noeud = QFileInfo(cherche).canonicalFilePath();
  for (const PeripheriqueVideo& candidat : liste)
    if (candidat.Noeud == noeud) return candidat;
  return PeripheriqueVideo{noeud, {}, {}};
}

std::optional<PeripheriqueVideo> AccesV4L2::LaSeule() const {
  const QList<PeripheriqueVideo> liste = Peripheriques();
  return liste.size() == 1 ? std::optional(liste.first()) : std::nullopt;
}

Raison AccesV4L2::PourquoiAucune() const {
  for (const QString& noeud : Noeuds()) {
    // By the effective rights, with which it would be opened.
    if (::faccessat(AT_FDCWD, QFile::encodeName(noeud).constData(), R_OK | W_OK, AT_EACCESS) != 0 && errno == EACCES)
      return {Motif::kSansPermission, NomGroupe(noeud)};
  }
  // It is there: its driver does not say what it is.
  if (!Muets().isEmpty()) return {Motif::kSansImage, {}};
  return {Motif::kAbsente, {}};
}

QList<FormatCamera> AccesV4L2::Formats(const QString& noeud) const {
  const auto question = [formats = Questions_.Formats, noeud] { return formats(noeud); };
  return Guichets_.Demande<QList<FormatCamera>>(noeud, question, Limites_.Question).value_or(QList<FormatCamera>());
}

QList<ReglageCamera> AccesV4L2::Reglages(const QString& noeud) const {
  const auto question = [reglages = Questions_.Reglages, noeud] { return reglages(noeud); };
  return Guichets_.Demande<QList<ReglageCamera>>(noeud, question, Limites_.Question).value_or(QList<ReglageCamera>());
}

// At a desk of its own, as a device: PipeWire may answer as little as one.
QList<CameraBureau> AccesV4L2::CamerasDuBureau() const {
  if (!Questions_.Bureau) return {};
  return Guichets_.Demande<QList<CameraBureau>>(QStringLiteral("PipeWire"), Questions_.Bureau, Limites_.Liste)
      .value_or(QList<CameraBureau>());
}

std::unique_ptr<QObject> AccesV4L2::SuitBranchements(std::function<void()> change) const {
  return std::make_unique<SuiviNoeuds>(Questions_.Dossier, std::move(change));
}

bool AccesV4L2::Regle(const QString& noeud, quint32 numero, qint32 valeur) {
  const auto question = [regle = Questions_.Regle, noeud, numero, valeur] { return regle(noeud, numero, valeur); };
  return Guichets_.Demande<bool>(noeud, question, Limites_.Question).value_or(false);
}

}  // namespace vaktor
