// Systems other than Linux: nobody knows who else runs.

#include "front/qt/one_instance.h"

namespace ardane {

struct OneInstance::Link {};

OneInstance::OneInstance(const std::filesystem::path &, std::chrono::milliseconds) {}
OneInstance::~OneInstance() = default;
void OneInstance::listen(std::function<void(const std::string &)>) {}
void OneInstance::answer() {}

}  // namespace ardane
