// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/widgets/live_wait.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QInputEvent>
#include <QPointer>
#include <QScopeGuard>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <memory>
#include <optional>
#include <vector>

namespace vaktor {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kRegard{10};

// What the pointer passes over is no order: buttons may light up. A window's closing is none either, it is let through.
bool EstGeste(const QEvent& evenement) {
  return evenement.isInputEvent() && evenement.type() != QEvent::Enter && evenement.type() != QEvent::HoverEnter &&
         evenement.type() != QEvent::HoverMove && evenement.type() != QEvent::HoverLeave;
}

// Qt looks at this where a gesture enters from the system, and these enter a second time from elsewhere.
bool EstDerriereUnMessage(const QObject& cible) {
  const QWidget* message = QApplication::activeModalWidget();
  if (message == nullptr) return false;
  const QWindow* devant = message->windowHandle();
  const auto* fenetre = qobject_cast<const QWindow*>(&cible);
  if (const auto* controle = qobject_cast<const QWidget*>(&cible)) fenetre = controle->window()->windowHandle();
  if (devant == nullptr || fenetre == nullptr) return false;
  return fenetre != devant && !devant->isAncestorOf(fenetre);
}

// Keeps the user's gestures while it lives, and hands them on afterwards. Dropping them would lose a word half typed;
// letting them in would let a second click into the middle of what the first one began.
class RetenueGestes : public QObject {
 public:
  RetenueGestes() { qApp->installEventFilter(this); }
  ~RetenueGestes() override {
    qApp->removeEventFilter(this);
    for (Geste& geste : Gestes_) Rend(std::move(geste));
  }

  bool eventFilter(QObject* cible, QEvent* evenement) override {
    if (!EstGeste(*evenement)) return false;
    evenement->accept();  // a key is no shortcut before its time
    if (evenement->type() == QEvent::ShortcutOverride) return true;
    if (!Gestes_.empty() && Depasse(Gestes_.back(), cible, *evenement)) Gestes_.pop_back();
    Gestes_.push_back({cible, std::shared_ptr<QEvent>(evenement->clone())});
    return true;
  }

 private:
  struct Geste {
    QPointer<QObject> Cible;
    std::shared_ptr<QEvent> Evenement;
  };

  // Of moves that follow each other only where the last one ended matters. A mouse tells hundreds of them a second, and
  // all would be played again at once.
  static bool Depasse(const Geste& avant, const QObject* cible, const QEvent& evenement) {
    if (evenement.type() != QEvent::MouseMove || avant.Evenement->type() != QEvent::MouseMove) return false;
    const auto& ancien = static_cast<const QMouseEvent&>(*avant.Evenement);
    return avant.Cible == cible && ancien.buttons() == static_cast<const QMouseEvent&>(evenement).buttons();
  }

  static void Rend(Geste geste) {
    const auto rend = [geste = std::move(geste)] {
      if (geste.Cible && !EstDerriereUnMessage(*geste.Cible)) {
        QCoreApplication::sendEvent(geste.Cible, geste.Evenement.get());
      }
    };
    QMetaObject::invokeMethod(qApp, rend, Qt::QueuedConnection);
  }

  std::vector<Geste> Gestes_;
};

bool AttendEndormi(const std::function<bool()>& fait, milliseconds limite) {
  QElapsedTimer depuis;
  depuis.start();
  while (!fait()) {
    if (depuis.elapsed() >= limite.count()) return false;
    QThread::msleep(static_cast<unsigned long>(kRegard.count()));
  }
  return true;
}

}  // namespace

bool AttendVivant(const std::function<bool()>& fait, milliseconds limite, Gestes gestes) {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr ||
      QThread::currentThread() != qApp->thread()) {
    return AttendEndormi(fait, limite);
  }
  if (fait()) return true;
  QEventLoop boucle;
  QTimer regard;
  QElapsedTimer depuis;
  bool vient = false;
  QObject::connect(&regard, &QTimer::timeout, &boucle, [&] {
    vient = fait();
    if (vient || depuis.elapsed() >= limite.count()) boucle.quit();
  });
  depuis.start();
  regard.start(kRegard);
  {
    std::optional<RetenueGestes> retenue;
    if (gestes == Gestes::kRetient) retenue.emplace();
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    const auto rend = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
    // An end of the program ends this loop with the others, and none begins after it.
    boucle.exec();
  }
  return vient;
}

}  // namespace vaktor
