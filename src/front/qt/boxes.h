// Message boxes with the desktop's icons and French buttons.
#pragma once

#include "front/qt/dispatcher.h"
#include "front/qt/renderer.h"
#include "front/qt/screen.h"
#include "platform/services.h"

namespace ardane {

/// The box's object name is "boîte", its buttons' are "ok", "oui" and "non". Closing the box otherwise than
/// by a button, by Escape too, answers OK, or Non where that is offered and throws nothing away.
class BoxesQt : public Boîtes {
 public:
  BoxesQt(Dispatcher &dispatcher, ScreenQt &screen, Renderer &renderer)
      : dispatcher_(dispatcher), screen_(screen), renderer_(renderer) {}

  Réponse montrer(const Boîte &boîte) override;
  /// True while a box is up.
  bool up() const { return up_ > 0; }

 private:
  Dispatcher &dispatcher_;
  ScreenQt &screen_;
  Renderer &renderer_;
  int up_ = 0;
};

}  // namespace ardane
