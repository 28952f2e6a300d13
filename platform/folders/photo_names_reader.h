// The names of the photos of a folder of the real machine.
#pragma once

#include <QTimer>
#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <list>
#include <memory>
#include <optional>
#include <thread>

#include "image/ports/photo_names.h"
#include "platform/base/folder_listing.h"
#include "platform/folders/event_loop_relay.h"

namespace vaktor {

/// Reads and sorts on a thread of its own. A reading that is forgotten stops at its next name; one that waits for a
/// dead disk ends with the disk or with the process, and there are never more than a few of these. User-interface
/// thread, with a QCoreApplication.
class LecteurNomsSysteme : public LecteurNoms {
 public:
  /// Reads a folder, on one of the threads: see ListeDossier. What it throws is told as kIllisible.
  using Liste = std::function<std::optional<QStringList>(const QByteArray&, const QString&, const std::atomic<bool>&)>;

  /// After `patience` without an answer kSansReponse is told.
  explicit LecteurNomsSysteme(std::chrono::milliseconds patience = std::chrono::seconds(3), Liste liste = ListeDossier);
  /// Ends the threads; does not wait long for one that hangs.
  ~LecteurNomsSysteme() override;
  LecteurNomsSysteme(const LecteurNomsSysteme&) = delete;
  LecteurNomsSysteme& operator=(const LecteurNomsSysteme&) = delete;

  void LitNoms(const QString& dossier, const QString& motif, Recoit recoit) override;
  void Oublie() override;

 private:
  /// Shared by the reader and the thread.
  struct Lecture {
    std::atomic<bool> Abandonnee = false;
    Recoit Rend;  // of the user-interface thread alone
  };
  struct Fil {
    std::thread Thread;
    std::future<void> Fini;
  };

  void Demarre(const QString& dossier, const QString& motif);
  void RendNoms(const std::shared_ptr<Lecture>& lecture, const NomsPhotos& lus);
  void RetireFinis();

  const Liste Liste_;
  std::shared_ptr<RelaisBoucle> Relais_ = std::make_shared<RelaisBoucle>();
  std::shared_ptr<Lecture> EnCours_;
  std::list<Fil> Fils_;
  QTimer Patience_;
};

}  // namespace vaktor
