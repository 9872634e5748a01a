#include "front/qt/control_view.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <cmath>

#include "front/qt/appearance.h"

namespace ardane {
namespace {

/// The player left the control for another one, and not the program for something else.
bool is_real_loss(Qt::FocusReason reason) {
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
         reason != Qt::MenuBarFocusReason;
}

bool is_enter(const QEvent &event) {
  const int key = static_cast<const QKeyEvent &>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

QRect place_of(const Contrôle &control) {
  return {static_cast<int>(std::lround(control.gauche)), static_cast<int>(std::lround(control.haut)),
          static_cast<int>(std::lround(control.largeur)), static_cast<int>(std::lround(control.hauteur))};
}

ControlView::ControlView(Contrôle &control, const ViewContext &context, QWidget *widget)
    : context_(context), control_(control), widget_(widget) {
  widget_->setObjectName(to_qt(control.nom));
  widget_->installEventFilter(this);
  if (control.lecture_seule && control.ordre_tabulation < 0) widget_->setFocusPolicy(Qt::ClickFocus);
}

void ControlView::sync() {
  const Look look{place(),       is_shown(),       control_.actif, control_.infobulle,
                  control_.fond, control_.couleur, control_.police};
  if (look == shown_) return;
  const bool first = !shown_;
  if (first || look.place != shown_->place) widget_->setGeometry(look.place);
  if (first || look.enabled != shown_->enabled) widget_->setEnabled(look.enabled);
  if (first || look.police != shown_->police) widget_->setFont(to_qt(look.police));
  if (first || look.tool_tip != shown_->tool_tip) widget_->setToolTip(tool_tip(look.tool_tip));
  const bool coloured = look.fond || look.couleur;
  if (first ? coloured : look.fond != shown_->fond || look.couleur != shown_->couleur)
    set_colours(*widget_, look.fond, look.couleur);
  if (first || look.visible != shown_->visible) widget_->setVisible(look.visible);
  shown_ = look;
}

void ControlView::click() {
  run([this] { cliquer(context_.window, control_); });
}

bool ControlView::eventFilter(QObject *, QEvent *event) {
  switch (event->type()) {
    case QEvent::FocusIn:
      if (!context_.dispatcher.busy()) context_.window.focus = &control_;
      break;
    case QEvent::FocusOut:
      if (!control_.perte_du_focus || !is_real_loss(static_cast<QFocusEvent *>(event)->reason())) break;
      // By the time the program is idle the window may be gone.
      context_.dispatcher.run_when_idle([view = QPointer<ControlView>(this)] {
        if (view) view->control_.perte_du_focus();
      });
      break;
    case QEvent::KeyPress:
      if (!control_.entrée || control_.multiligne || !is_enter(*event)) break;
      run(control_.entrée);
      return true;
    default: break;
  }
  return false;
}

}  // namespace ardane
