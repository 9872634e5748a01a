// Plays the game's sounds through Qt Multimedia.
#include <QSoundEffect>
#include <QUrl>
#include <map>

#include "platform/services.h"

namespace ardane {
namespace {

class SoundEffects : public Son {
 public:
  void jouer(const std::string &chemin) override {
    if (playing_ != nullptr) playing_->stop();
    QSoundEffect &effect = effects_[chemin];
    if (effect.source().isEmpty())
      effect.setSource(
          QUrl::fromLocalFile(QString::fromUtf8(chemin.data(), static_cast<qsizetype>(chemin.size()))));
    playing_ = &effect;
    effect.play();
  }

 private:
  std::map<std::string, QSoundEffect> effects_;  ///< by path
  QSoundEffect *playing_ = nullptr;
};

}  // namespace
}  // namespace ardane

extern "C" Q_DECL_EXPORT ardane::Son *ardane_make_sound() { return new ardane::SoundEffects; }
