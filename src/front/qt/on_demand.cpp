#include "front/qt/on_demand.h"

#include <QCoreApplication>
#include <QLibrary>

namespace ardane {
namespace {

/// What the module's `factory` makes; null if there is no such module or it does not load.
template <class Service>
std::unique_ptr<Service> load(const char *module, const char *factory) {
  QLibrary library(QCoreApplication::applicationDirPath() + QLatin1Char('/') + QLatin1String(module));
  using Factory = Service *(*)();
  const auto make = reinterpret_cast<Factory>(library.resolve(factory));
  return std::unique_ptr<Service>(make == nullptr ? nullptr : make());
}

}  // namespace

void SoundOnDemand::jouer(const std::string &chemin) {
  if (!asked_) player_ = load<Son>("ardane-son", "ardane_make_sound");
  asked_ = true;
  if (player_ != nullptr) player_->jouer(chemin);
}

std::optional<std::string> WebOnDemand::lire_page(const std::string &page) {
  if (!asked_) reader_ = load<Web>("ardane-web", "ardane_make_web");
  asked_ = true;
  return reader_ == nullptr ? std::nullopt : reader_->lire_page(page);
}

}  // namespace ardane
