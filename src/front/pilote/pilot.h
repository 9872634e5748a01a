// The pilot: reads commands line by line, carries them out on the program, and writes what happens.
//
// After each command come the lines of its events, then one line that tells what waits for the next. A box or
// a modal window waits in a loop of its own inside the handler that opened it, so the program's procedures
// run as they do under a toolkit.
#pragma once

#include <functional>
#include <istream>
#include <ostream>

#include "front/pilote/commands.h"
#include "front/pilote/event_lines.h"
#include "front/pilote/journal.h"
#include "front/pilote/options.h"
#include "front/pilote/session.h"
#include "front/scripted/scripted_world.h"
#include "startup/program.h"

namespace ardane {

class Pilote : private Attente {
 public:
  /// `options.programme` is the program's folder, `options.dossier` the current one, empty for none. The
  /// streams must outlive the pilot.
  Pilote(std::istream &entrée, std::ostream &sortie, const OptionsPilote &options);

  /// Runs until the program has ended, `quitter` or the end of the input. Returns the exit code: 1 after a
  /// fatal error, otherwise 0.
  int exécuter();

  /// For whoever looks at the windows while the pilot waits for a line.
  const MondeScripté &monde() const { return monde_; }

 private:
  Réponse attendre_réponse(const Boîte &boîte) override;
  void attendre_fermeture(Fenêtre &fenêtre) override;
  /// Takes commands until `fini`.
  void attendre_que(const std::function<bool()> &fini);
  void pas();
  void écrire_attente();
  int finir(int code);

  std::istream &entrée_;
  Journal journal_;
  Récit récit_;
  MondeScripté monde_;
  Programme programme_;
  Session session_;
};

}  // namespace ardane
