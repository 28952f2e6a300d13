// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/common/clicked_words.h"

#include <QEvent>
#include <QMouseEvent>
#include <utility>

namespace vaktor {

namespace {

class MotsDeCase : public QObject {
 public:
  MotsDeCase(QLabel* mots, QWidget& boite, std::function<void()> bascule)
      : QObject(mots), Mots_(mots), Boite_(boite), Bascule_(std::move(bascule)) {
    mots->installEventFilter(this);
  }
  bool eventFilter(QObject*, QEvent* evenement) override {
    const QEvent::Type type = evenement->type();
    const bool appuie = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!appuie && type != QEvent::MouseButtonRelease) return false;
    const auto* souris = static_cast<QMouseEvent*>(evenement);
    if (souris->button() != Qt::LeftButton) return false;
    // A press that began on another control is no click here.
    const bool clique = !appuie && Appuyes_ && Mots_->rect().contains(souris->position().toPoint());
    Appuyes_ = appuie;
    if (!clique || !Boite_.isEnabled()) return false;
    Boite_.setFocus(Qt::MouseFocusReason);
    Bascule_();
    return false;
  }

 private:
  QLabel* Mots_;
  QWidget& Boite_;
  std::function<void()> Bascule_;
  bool Appuyes_ = false;
};

}  // namespace

void RelieMots(QLabel& mots, QWidget& boite, std::function<void()> bascule) {
  new MotsDeCase(&mots, boite, std::move(bascule));
}

}  // namespace vaktor
