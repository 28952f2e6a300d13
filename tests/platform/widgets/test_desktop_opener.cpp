// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

#include "platform/widgets/desktop_opener.h"

namespace vaktor {

/// Stands in for the desktop: takes what would be opened.
class FauxBureau : public QObject {
  Q_OBJECT

 public:
  FauxBureau() {
    for (const auto& schema : kSchemas) QDesktopServices::setUrlHandler(schema, this, "Recoit");
  }
  ~FauxBureau() override {
    for (const auto& schema : kSchemas) QDesktopServices::unsetUrlHandler(schema);
  }
  FauxBureau(const FauxBureau&) = delete;
  FauxBureau& operator=(const FauxBureau&) = delete;

  QStringList Ouverts;

 public Q_SLOTS:
  void Recoit(const QUrl& url) { Ouverts += url.toString(); }

 private:
  inline static const QStringList kSchemas{QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("file")};
};

namespace {

TEST(DesktopOpener, PassesAnAddressOnAsItStands) {
  const FauxBureau bureau;
  OuvreurBureau().OuvreAdresse(QStringLiteral("http://example.org/a.php?logiciel=Vaktor&version=1.4.9"));
  OuvreurBureau().OuvreAdresse(QStringLiteral("https://example.org/"));
  EXPECT_EQ(bureau.Ouverts, QStringList({QStringLiteral("http://example.org/a.php?logiciel=Vaktor&version=1.4.9"),
                                         QStringLiteral("https://example.org/")}));
}

TEST(DesktopOpener, AnAddressWithoutSchemeIsAWebAddress) {
  const FauxBureau bureau;
  OuvreurBureau().OuvreAdresse(QStringLiteral("www.example.org/cam/live.html"));
  EXPECT_EQ(bureau.Ouverts, QStringList{QStringLiteral("http://www.example.org/cam/live.html")});
}

TEST(DesktopOpener, TheEmptyAddressOpensNothing) {
  const FauxBureau bureau;
  OuvreurBureau().OuvreAdresse(QString());
  OuvreurBureau().OuvreDossier(QString());
  EXPECT_TRUE(bureau.Ouverts.isEmpty());
}

TEST(DesktopOpener, AFolderIsOpenedInTheSystemsForm) {
  const FauxBureau bureau;
  OuvreurBureau().OuvreDossier(QStringLiteral("/home/anna/Vaktor\\intrus\\"));
  EXPECT_EQ(bureau.Ouverts, QStringList{QStringLiteral("file:///home/anna/Vaktor/intrus/")});
}

}  // namespace
}  // namespace vaktor

#include "test_desktop_opener.moc"
