// A whole world without a screen, one service each: what scripts say goes in, what the program does goes to a
// witness. The pilot and the tests of the rules play in it.
#pragma once

#include <memory>

#include "front/scripted/scripted_facade.h"
#include "front/scripted/scripted_services.h"
#include "front/scripted/witness.h"
#include "front/scripted/world_options.h"
#include "platform/services.h"

namespace ardane {

struct MondeScripté {
  /// `témoin` and `attente` must outlive the world.
  MondeScripté(const OptionsMonde &options, Témoin &témoin, Attente &attente);

  /// As the program takes it.
  Monde monde();

  std::unique_ptr<Registre> registre;
  EcranScripté écran;
  SonScripté son;
  HorlogeScriptée horloge;
  HasardScripté hasard;
  WebScripté web;
  AideScriptée aide;
  BoîtesScriptées boîtes;
  FaçadeScriptée façade;
};

}  // namespace ardane
