#include "ui/window/grey_button_clicks.h"

#include <QAbstractButton>

#include "ui/controls/control_factory.h"

namespace vaktor {

void BrancheBoutonsGris(Form1& fenetre, const ActionsBoutonsGris& actions) {
  for (std::size_t i = 0; i < actions.size(); ++i) {
    auto* bouton = fenetre.findChild<QAbstractButton*>(NomIndexe("BoutonGris", static_cast<int>(i)));
    if (bouton != nullptr && actions.at(i))
      QObject::connect(bouton, &QAbstractButton::clicked, &fenetre, actions.at(i));
  }
}

}  // namespace vaktor
