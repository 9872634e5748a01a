// What reaches the outside of a scripted world, told as it happens.
#pragma once

#include <string>

#include "platform/controls.h"
#include "platform/services.h"

namespace ardane {

/// Whoever looks on overrides what he wants to know of.
class Témoin {
 public:
  virtual ~Témoin() = default;
  /// A box has come up.
  virtual void boîte_montrée(const Boîte & /*boîte*/) {}
  virtual void fenêtre_ouverte(const Fenêtre & /*fenêtre*/, bool /*modale*/) {}
  virtual void fenêtre_fermée(const Fenêtre & /*fenêtre*/, bool /*modale*/) {}
  virtual void sablier_posé(bool /*actif*/) {}
  /// `fichier` is the sound's name without its folder.
  virtual void son_joué(const std::string & /*fichier*/) {}
  virtual void page_demandée(const std::string & /*page*/) {}
  virtual void aide_ouverte(const std::string & /*fichier*/, int /*contexte*/) {}
};

}  // namespace ardane
