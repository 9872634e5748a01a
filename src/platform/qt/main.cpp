// The program `ardane`.
#include <QApplication>

#include "core/paths.h"
#include "core/resources.h"
#include "platform/qt/appearance.h"
#include "platform/qt/desktop.h"

int main(int argc, char **argv) {
  QApplication application(argc, argv);
  ardane::Desktop desktop({ardane::to_utf8(QCoreApplication::applicationDirPath()),
                           ardane::fichier_registre_par_défaut()},
                          ardane::ressources_du_programme());
  if (!desktop.start()) return 1;
  desktop.play();
  return 0;
}
