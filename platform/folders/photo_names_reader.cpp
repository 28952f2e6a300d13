#include "platform/folders/photo_names_reader.h"

#include <QFile>
#include <system_error>
#include <utility>

#include "platform/base/folder_listing.h"
#include "platform/base/system_files.h"

namespace vaktor {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kFilsAuPlus = 32;  // each for a request of the user's; those that hang count
constexpr auto kAttenteFin = 500ms;      // far longer than a disk that answers needs

// A folder of millions of names may want more memory than there is. Out of the thread that would end the whole program,
// which is there to watch and not to list.
NomsPhotos LitOuEchoue(const LecteurNomsSysteme::Liste& liste, const QByteArray& chemin, const QString& motif,
                       const std::atomic<bool>& abandon) {
  try {
    std::optional<QStringList> noms = liste(chemin, motif, abandon);
    if (noms) return {.Etat = EtatNoms::kLus, .Noms = *std::move(noms)};
  } catch (...) {
  }
  return {.Etat = EtatNoms::kIllisible};
}

}  // namespace

LecteurNomsSysteme::LecteurNomsSysteme(std::chrono::milliseconds patience, Liste liste) : Liste_(std::move(liste)) {
  Patience_.setSingleShot(true);
  Patience_.setInterval(patience);
  QObject::connect(&Patience_, &QTimer::timeout, &Patience_, [this] {
    const std::shared_ptr<Lecture> lecture = EnCours_;
    if (lecture) lecture->Rend({.Etat = EtatNoms::kSansReponse});
  });
}

LecteurNomsSysteme::~LecteurNomsSysteme() {
  Oublie();
  Relais_->Coupe();
  const auto limite = std::chrono::steady_clock::now() + kAttenteFin;
  for (Fil& fil : Fils_) {
    // A thread that still waits for its disk finds the mark when it wakes, and touches nothing of ours any more.
    fil.Fini.wait_until(limite) == std::future_status::ready ? fil.Thread.join() : fil.Thread.detach();
  }
}

void LecteurNomsSysteme::LitNoms(const QString& dossier, const QString& motif, Recoit recoit) {
  Oublie();
  RetireFinis();
  EnCours_ = std::make_shared<Lecture>();
  EnCours_->Rend = std::move(recoit);
  Patience_.start();
  // With so many that hang the next would hang too: it is late, and nothing of it comes any more.
  if (Fils_.size() < kFilsAuPlus) Demarre(dossier, motif);
}

void LecteurNomsSysteme::Demarre(const QString& dossier, const QString& motif) {
  std::promise<void> fini;
  Fil fil{.Thread = {}, .Fini = fini.get_future()};
  auto travail = [this, relais = Relais_, lecture = EnCours_, motif, liste = Liste_,
                  chemin = QFile::encodeName(CheminNatif(dossier)), fini = std::move(fini)]() mutable {
    const NomsPhotos lus = LitOuEchoue(liste, chemin, motif, lecture->Abandonnee);
    if (!lecture->Abandonnee) {
      // Run only while the relay, and so this reader, is there.
      relais->Poste([this, lecture, lus] { RendNoms(lecture, lus); });
    }
    lecture.reset();
    fini.set_value_at_thread_exit();
  };
  try {
    fil.Thread = std::thread(std::move(travail));
  } catch (const std::system_error&) {
    // No thread to be had: the same to whoever waits as a folder that may not be read.
    Relais_->Poste([this, lecture = EnCours_] { RendNoms(lecture, {}); });
    return;
  }
  Fils_.push_back(std::move(fil));
}

void LecteurNomsSysteme::RendNoms(const std::shared_ptr<Lecture>& lecture, const NomsPhotos& lus) {
  if (lecture != EnCours_) return;
  Patience_.stop();
  EnCours_.reset();
  RetireFinis();
  lecture->Rend(lus);
}

void LecteurNomsSysteme::Oublie() {
  Patience_.stop();
  if (!EnCours_) return;
  EnCours_->Abandonnee = true;
  EnCours_.reset();
}

void LecteurNomsSysteme::RetireFinis() {
  std::erase_if(Fils_, [](Fil& fil) {
    if (fil.Fini.wait_for(0s) != std::future_status::ready) return false;
    fil.Thread.join();
    return true;
  });
}

}  // namespace vaktor
