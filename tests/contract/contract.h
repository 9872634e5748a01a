// The fixture of the contract: windows that a test makes, over each front end.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "driver.h"

namespace ardane {

/// The front ends that this build has.
inline std::vector<FrontEnd> front_ends() {
  return {
      {"pilot", make_pilot_driver},
#ifdef ARDANE_DESKTOP
      {"desktop", make_desktop_driver},
#endif
  };
}

inline std::string front_end_name(const testing::TestParamInfo<FrontEnd> &info) {
  return std::string(info.param.name);
}

class Contract : public testing::TestWithParam<FrontEnd> {
 protected:
  Contract() {
    for (Fenêtre *made : {&window, &dialog}) {
      made->largeur = 400;
      made->hauteur = 300;
    }
  }
  void TearDown() override {
    EXPECT_TRUE(player->all_done());
    for (Fenêtre *made : {&dialog, &window}) player->windows().retirer(*made);
  }

  /// Adds a control below those that the window has already.
  static Contrôle &add(Fenêtre &to, const std::string &name, Genre kind, Contrôle *holder = nullptr) {
    Contrôle control;
    control.nom = name;
    control.genre = kind;
    control.largeur = 120;
    control.hauteur = 20;
    control.conteneur = holder;
    for (const Contrôle &other : to.contrôles())
      if (other.conteneur == holder) control.haut += other.hauteur + 4;
    return to.ajouter(std::move(control));
  }
  Contrôle &add(const std::string &name, Genre kind, Contrôle *holder = nullptr) {
    return add(window, name, kind, holder);
  }
  /// Writes a word among `told` whenever the event comes.
  std::function<void()> tell(const std::string &word) {
    return [this, word] { told.push_back(word); };
  }
  void show() { player->windows().montrer(window); }
  void show_modal(Fenêtre &shown) { player->windows().montrer_modale(shown); }

  const std::unique_ptr<Driver> player = GetParam().make();
  Fenêtre window{"fenêtre"};
  Fenêtre dialog{"dialogue"};
  std::vector<std::string> told;
};

}  // namespace ardane
