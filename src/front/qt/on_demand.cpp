#include "front/qt/on_demand.h"

#include <QCoreApplication>
#include <QLibrary>

#include "core/paths.h"
#include "front/qt/modules/web_module.h"
#include "front/qt/sound_file.h"

namespace ardane {
namespace {

/// The module's `factory`; null if there is no such module or it does not load.
template <class Factory>
Factory *load(const char *module, const char *factory) {
  QLibrary library(QCoreApplication::applicationDirPath() + QLatin1Char('/') + QLatin1String(module));
  return reinterpret_cast<Factory *>(library.resolve(factory));
}

/// The hourglass, for as long as it lives.
class Hourglass {
 public:
  explicit Hourglass(Ecran &screen) : screen_(screen) { screen_.sablier(true); }
  ~Hourglass() { screen_.sablier(false); }
  Hourglass(const Hourglass &) = delete;
  Hourglass &operator=(const Hourglass &) = delete;

 private:
  Ecran &screen_;
};

}  // namespace

void SoundOnDemand::jouer(const std::string &chemin) {
  if (!is_playable(chemin_natif(chemin))) return;
  if (!asked_)
    if (auto *make = load<Son *()>("ardane-son", "ardane_make_sound")) player_.reset(make());
  asked_ = true;
  if (player_ != nullptr) player_->jouer(chemin);
}

std::optional<std::string> WebOnDemand::lire_page(const std::string &page) {
  const Hourglass hourglass(screen_);
  if (!asked_)
    if (auto *make = load<Make_web>("ardane-web", "ardane_make_web"))
      reader_.reset(make(site_.c_str(), static_cast<int>(time_limit_.count())));
  asked_ = true;
  return reader_ == nullptr ? std::nullopt : reader_->lire_page(page);
}

}  // namespace ardane
