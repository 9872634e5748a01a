// Windows only: the system plays the game's sounds. One that cannot be played is no news to the player.

#include <QtGlobal>
#include <memory>

#include "platform/services.h"
#include "platform/windows_headers.h"
#include "platform/windows_text.h"

namespace ardane {
namespace {

class SystemSounds : public Son {
 public:
  SystemSounds() = default;
  ~SystemSounds() override { PlaySoundW(nullptr, nullptr, 0); }
  SystemSounds(const SystemSounds &) = delete;
  SystemSounds &operator=(const SystemSounds &) = delete;

  void jouer(const std::string &chemin) override {
    PlaySoundW(texte_large(chemin).c_str(), nullptr, SND_FILENAME | SND_ASYNC | SND_NODEFAULT);
  }
};

}  // namespace
}  // namespace ardane

extern "C" Q_DECL_EXPORT ardane::Son *ardane_make_sound() {
  return std::make_unique<ardane::SystemSounds>().release();
}
