// Systems other than Linux: no lock. The settings are still replaced in one piece, so two instances can lose
// each other's last change but never the file.

#include "platform/registry_lock.h"

namespace ardane {

struct VerrouRegistre::Prise {};
VerrouRegistre::VerrouRegistre(const std::filesystem::path &, std::chrono::milliseconds) {}
VerrouRegistre::~VerrouRegistre() = default;

}  // namespace ardane
