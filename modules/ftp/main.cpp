// VAKTORftp: puts the live image, the photos of an alarm and the page on a web site.
#include "modules/common/module_program.h"
#include "modules/ftp/ftp_module.h"

int main(int argc, char** argv) {
  using namespace vaktor;
  const DescriptionModule description{Compagnon::kFtp, QStringLiteral(VAKTOR_VERSION),
                                      QString::fromUtf8("Publie la caméra de Vaktor sur un site web."),
                                      QStringLiteral("Publishes the camera of Vaktor on a web site.")};
  return ExecuteModule(argc, argv, description,
                       [](const ContexteModule& contexte) { return std::make_unique<ModuleFtp>(contexte); });
}
