// The window `Pompe`: what the information file says of a province.
#pragma once

#include "core/context.h"
#include "platform/controls.h"

namespace ardane {

/// The card of `ProvinceFiche`, beside its marker on the map, which shows as long as the window is there. A
/// card that cannot be read is empty.
class Pompe : public Fenêtre {
 public:
  explicit Pompe(Contexte &c);
  ~Pompe() override;

 private:
  void placer_près_du_marqueur();
  void montrer_drapeau();

  Contexte &c_;
  Contrôle &marqueur_;
  const bool marqueur_visible_;
};

}  // namespace ardane
