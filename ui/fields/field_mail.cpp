// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/fields/field_mail.h"

#include "base/mail_addresses.h"
#include "texts/address_words.h"
#include "ui/common/field_text.h"
#include "ui/fields/field_events.h"
#include "ui/fields/field_rules.h"

namespace vaktor {

namespace {
constexpr Libelle kDemandeAdresse = Libelle::kMailDestination;

/// Every end of a line that the field takes for one as "LF".
QString UnitLignes(QString texte) {
  texte.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  texte.replace(u'\r', u'\n');
  texte.replace(QChar::LineSeparator, u'\n');  // what Shift and Enter put in
  return texte.replace(QChar::ParagraphSeparator, u'\n');
}

/// What the field holds, to the character, which its toPlainText() does not tell.
QString LitTexteMontre(const QPlainTextEdit& champ) { return UnitLignes(champ.document()->toRawText()); }
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
  connect(Page_.TextTexte, &QPlainTextEdit::textChanged, this, &ChampsMail::SuitTextTexte);
  const std::initializer_list<QWidget*> champs = {Page_.TxtNbrPhoto, Page_.TextNbrMail, Page_.TextEMail,
                                                  Page_.TextSujet, Page_.TextTexte};
  for (QWidget* champ : champs) {
    auto* evenements = new EvenementsChamp(champ);
    if (champ == Page_.TextEMail) connect(evenements, &EvenementsChamp::Quitte, this, &ChampsMail::JugeAdresses);
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

// The text is kept as it stands, where the field itself would make a plain blank of one that does not break, and "LF"
// of whatever ends a line. What it shows of a stored text is no change of that text; what the user then writes into it
// ends its lines as the text did.
void ChampsMail::SuitTextTexte() {
  QString& corps = Ports_.Reglages.MailCorps;
  const QString montre = LitTexteMontre(*Page_.TextTexte);
  if (montre != UnitLignes(corps)) {
    const bool crlf = corps.contains(QStringLiteral("\r\n"));
    corps = montre;
    if (crlf) corps.replace(u'\n', QStringLiteral("\r\n"));
  }
  Ports_.NoteModification();
}

void ChampsMail::DemandeAdresse() {
  RougitChamp(*Page_.TextEMail, true);
  Page_.TextEMail->setText(Ports_.Textes.Dit(kDemandeAdresse));
  Page_.TextEMail->setFocus(Qt::OtherFocusReason);  // the first key takes the prompt away and is typed
}

// When the field is left, not while an address is half typed. Mails go to the others all the same.
void ChampsMail::JugeAdresses() {
  QLineEdit& champ = *Page_.TextEMail;
  if (champ.text() == Ports_.Textes.Dit(kDemandeAdresse)) return;
  const QStringList fausses = LitAdresses(champ.text(), !Ports_.Reglages.SmtpActif).Mauvaises;
  RougitChamp(champ, !fausses.isEmpty());
  champ.setToolTip(fausses.isEmpty() ? Ports_.Textes.Dit(Aide::kMailDestination)
                                     : DitAdressesFausses(LangueParlee(Ports_.Reglages.LangueCourante), fausses));
}

void ChampsMail::RediRaison() {
  if (EstRouge(*Page_.TextEMail)) JugeAdresses();
}

void ChampsMail::RetireDemande() {
  RougitChamp(*Page_.TextEMail, false);
  if (Page_.TextEMail->text() == Ports_.Textes.Dit(kDemandeAdresse)) Page_.TextEMail->clear();
}

}  // namespace vaktor
