// The whole world of the pilot, one service each.
#pragma once

#include <memory>

#include "front/pilote/headless_services.h"
#include "front/pilote/headless_windows.h"
#include "front/pilote/journal.h"
#include "front/pilote/options.h"
#include "platform/services.h"

namespace ardane {

struct MondeScripté {
  /// `journal` and `attente` must outlive the world.
  MondeScripté(const Options &options, Journal &journal, Attente &attente);

  /// As the program takes it.
  Monde monde();

  std::unique_ptr<Registre> registre;
  EcranScripté écran;
  SonÉcrit son;
  HorlogeScriptée horloge;
  HasardScripté hasard;
  WebScripté web;
  AideÉcrite aide;
  BoîtesScriptées boîtes;
  FaçadeScriptée façade;
};

}  // namespace ardane
