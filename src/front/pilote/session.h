// What commands work on: one run of the program in its scripted world.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/resources.h"
#include "front/pilote/journal.h"
#include "front/scripted/scripted_world.h"
#include "startup/program.h"

namespace ardane {

struct Session {
  Journal &journal;
  MondeScripté &monde;
  Programme &programme;
  const CatalogueImages &images;
  std::string répertoire;  ///< the program's folder
  bool démarrée = false;
  std::optional<Réponse> réponse = std::nullopt;  ///< to the box that is up
};

/// The pilot leaves at once. No std::exception, so that no guard of the program's can hold it up.
struct Départ {};

/// The window that takes commands. Throws Refus if none is open.
Fenêtre &fenêtre_du_dessus(const Session &s);
/// The control of that name of the window on top. Throws Refus.
Contrôle &contrôle_du_dessus(const Session &s, std::string_view nom);

/// What a click on a pixel of the map would reach.
struct Visée {
  Contrôle *image = nullptr;  ///< null if the pixel is not in view or takes no click
  Point écran;                ///< the pixel on the screen
};
Visée viser(const Session &s, int x, int y);

}  // namespace ardane
