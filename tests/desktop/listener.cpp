#include "listener.h"

#include "front/qt/accessibility.h"
#include "front/qt/appearance.h"

namespace {

ardane::Listener *listening = nullptr;

}  // namespace

// In place of the toolkit's, which knows of a bus; the offscreen platform has none.

bool QAccessible::isActive() {
  return listening != nullptr;
}

void QAccessible::updateAccessibility(QAccessibleEvent *event) {
  if (listening != nullptr) listening->hear(*event);
}

namespace ardane {

Listener::Listener() {
  install_accessibility();
  listening = this;
}

Listener::~Listener() {
  leave();
}

void Listener::leave() {
  listening = nullptr;
}

void Listener::hear(const QAccessibleEvent &event) {
  const QAccessibleInterface *about = event.accessibleInterface();
  if (about != nullptr) heard_.push_back({event.type(), to_utf8(about->text(QAccessible::Name))});
}

std::vector<std::string> Listener::heard(QAccessible::Event kind) const {
  std::vector<std::string> names;
  for (const Heard &one : heard_)
    if (one.kind == kind) names.push_back(one.name);
  return names;
}

}  // namespace ardane
