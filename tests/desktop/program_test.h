// The whole program in its real windows, over a folder and settings of the test's own.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "core/game_state.h"
#include "front/qt/demonstration/scratch_folder.h"
#include "script.h"

namespace ardane {

/// A program that the test starts, and that it may end and start again over the same files.
class ProgramTest : public testing::Test {
 protected:
  /// Starts the program; the boxes of a first start are accepted and forgotten.
  void start() {
    ASSERT_TRUE(script().player.start());
    script().told.clear();
  }
  /// Leaves the program by its menu; the next start is another run of it.
  void end() {
    order().choose("menu_fichier", "fichier_quitter");
    play();
    ASSERT_FALSE(desktop().programme().en_cours());
    die();
  }
  /// The program is gone without another line of it, as if it had been killed.
  void die() {
    script_.reset();
    desktop_.reset();
  }
  /// Has the orders carried out; the test ends where they cannot be.
  void play() {
    const std::string trouble = script().run();
    if (!trouble.empty()) throw std::runtime_error("The player gave up: " + trouble);
  }

  Desktop &desktop() {
    if (desktop_ == nullptr) desktop_ = std::make_unique<Desktop>(places(), ressources_du_programme());
    return *desktop_;
  }
  Script &script() {
    if (script_ == nullptr) script_ = std::make_unique<Script>(desktop(), hand());
    return *script_;
  }
  /// What the player works the windows with.
  virtual AutomaticPlayer::Hand hand() const { return AutomaticPlayer::Hand::mouse; }
  AutomaticPlayer &order() { return script().player; }
  GameState &state() { return desktop().programme().état(); }
  Ecran_principal &screen() { return desktop().programme().principale(); }
  QWidget *frame() { return desktop().renderer().frame(screen()); }

  virtual DesktopPlaces places() const { return folder.places(); }

  const ScratchFolder folder{ARDANE_RESOURCES};

 private:
  std::unique_ptr<Desktop> desktop_;
  std::unique_ptr<Script> script_;
};

}  // namespace ardane
