#include "ui/fields/field_mail.h"

#include "ui/common/field_text.h"
#include "ui/fields/field_events.h"
#include "ui/fields/field_rules.h"

namespace vaktor {

namespace {
constexpr Libelle kDemandeAdresse = Libelle::kMailDestination;
}  // namespace

ChampsMail::ChampsMail(const PortsChamps& ports, PageMail& page) : Ports_(ports), Page_(page) {
  // Before the handlers are tied: a design text is no change.
  PrepareChamp(*Page_.TxtNbrPhoto, QStringLiteral("10"));
  PrepareChamp(*Page_.TextNbrMail, QStringLiteral("3"));
  PrepareChamp(*Page_.TextEMail, QString());
  PrepareChamp(*Page_.TextSujet, QStringLiteral("INTRUSION"));
  BrancheChamps();
}

void ChampsMail::BrancheChamps() {
  connect(Page_.TxtNbrPhoto, &QLineEdit::textChanged, this, &ChampsMail::SuitTxtNbrPhoto);
  connect(Page_.TextNbrMail, &QLineEdit::textChanged, this, &ChampsMail::SuitTextNbrMail);
  connect(Page_.TextEMail, &QLineEdit::textChanged, this, &ChampsMail::SuitTextEMail);
  connect(Page_.TextSujet, &QLineEdit::textChanged, this, [this](const QString& texte) {
    EcritChamp(*Page_.TextSujet, GardePremiereLigne(texte));
    Ports_.Reglages.MailSujet = Page_.TextSujet->text();
    Ports_.NoteModification();
  });
  connect(Page_.TextTexte, &QPlainTextEdit::textChanged, this, [this] {
    Ports_.Reglages.MailCorps = Page_.TextTexte->toPlainText();
    Ports_.NoteModification();
  });
  const std::initializer_list<QWidget*> champs = {Page_.TxtNbrPhoto, Page_.TextNbrMail, Page_.TextEMail,
                                                  Page_.TextSujet, Page_.TextTexte};
  for (QWidget* champ : champs) {
    auto* evenements = new EvenementsChamp(champ);
    connect(evenements, &EvenementsChamp::Quitte, this, &ChampsMail::Quitte);
    if (champ != Page_.TextEMail) continue;
    connect(evenements, &EvenementsChamp::Clique, this, &ChampsMail::RetireDemande);
    connect(evenements, &EvenementsChamp::Touche, this, &ChampsMail::RetireDemande);
  }
}

void ChampsMail::SuitTxtNbrPhoto() {
  EcritChamp(*Page_.TxtNbrPhoto, NettoieNombre(Page_.TxtNbrPhoto->text(), QStringLiteral("0"), 0));
  Ports_.Reglages.MailNombrePhoto = Page_.TxtNbrPhoto->text();
  Ports_.NoteModification();
}

void ChampsMail::SuitTextNbrMail() {
  EcritChamp(*Page_.TextNbrMail, NettoieNombre(Page_.TextNbrMail->text(), QStringLiteral("1"), 1));
  Ports_.Reglages.MailNombreMail = Page_.TextNbrMail->text();
  Ports_.NoteModification();
}

// What stands in the field is what is kept, the prompt too: a save made while it shows stores the prompt.
void ChampsMail::SuitTextEMail() {
  QLineEdit& champ = *Page_.TextEMail;
  if (champ.text() != Ports_.Textes.Dit(kDemandeAdresse)) {
    EcritChamp(champ, RetireBlancs(GardePremiereLigne(champ.text())));
  }
  Ports_.Reglages.MailDestination = champ.text();
  Ports_.NoteModification();
}

void ChampsMail::DemandeAdresse() {
  RougitChamp(*Page_.TextEMail, true);
  Page_.TextEMail->setText(Ports_.Textes.Dit(kDemandeAdresse));
  Page_.TextEMail->setFocus(Qt::OtherFocusReason);  // the first key takes the prompt away and is typed
}

void ChampsMail::RetireDemande() {
  RougitChamp(*Page_.TextEMail, false);
  if (Page_.TextEMail->text() == Ports_.Textes.Dit(kDemandeAdresse)) Page_.TextEMail->clear();
}

}  // namespace vaktor
