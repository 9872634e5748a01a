#include "front/qt/control_view.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include "front/qt/accessibility.h"
#include "front/qt/appearance.h"

namespace ardane {
namespace {

/// The player left the control for another one, and not the program for something else.
bool is_real_loss(Qt::FocusReason reason) {
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
         reason != Qt::MenuBarFocusReason;
}

}  // namespace

bool is_enter(const QKeyEvent &event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

QRect place_of(const Contrôle &control) {
  return {qRound(control.gauche), qRound(control.haut), qRound(control.largeur), qRound(control.hauteur)};
}

ControlView::ControlView(Contrôle &control, const ViewContext &context, QWidget *widget)
    : context_(context), control_(control), widget_(widget) {
  widget_->setObjectName(to_qt(control.nom));
  widget_->installEventFilter(this);
  set_silent(*widget_, est_muet(control));
  if (prend_le_clavier(control) && widget_->focusPolicy() == Qt::NoFocus)
    widget_->setFocusPolicy(Qt::StrongFocus);
  if (control.lecture_seule && control.ordre_tabulation < 0) widget_->setFocusPolicy(Qt::ClickFocus);
}

void ControlView::sync() {
  if (const std::string &spoken = nom_à_dire(control()); spoken != spoken_ && !est_muet(control())) {
    spoken_ = spoken;
    widget_->setAccessibleName(to_qt(spoken));
  }
  const Look look{place(),        is_shown(),        control().actif,  control().infobulle,
                  control().fond, control().couleur, control().police, scale()};
  if (look == shown_) return;
  const bool first = !shown_;
  if (first || look.place != shown_->place) widget_->setGeometry(look.place);
  if (first || look.enabled != shown_->enabled) widget_->setEnabled(look.enabled);
  if (first || look.police != shown_->police || look.scale != shown_->scale)
    widget_->setFont(look.scale.font(look.police));
  if (first || look.tool_tip != shown_->tool_tip) widget_->setToolTip(tool_tip(look.tool_tip));
  const bool coloured = look.fond || look.couleur;
  if (first ? coloured : look.fond != shown_->fond || look.couleur != shown_->couleur)
    set_colours(*widget_, look.fond, look.couleur);
  if (first || look.visible != shown_->visible) widget_->setVisible(look.visible);
  shown_ = look;
}

void ControlView::click() {
  run([this] { cliquer(context_.window, control()); });
}

void ControlView::double_click() {
  run([this] { déclencher(control().double_clic); });
}

bool ControlView::eventFilter(QObject *, QEvent *event) {
  switch (event->type()) {
    case QEvent::FocusIn:
      // The focus is marked however it came: a key may well be what follows.
      widget_->window()->setAttribute(Qt::WA_KeyboardFocusChange);
      if (!context_.dispatcher.busy()) context_.window.focus = &control_;
      break;
    case QEvent::FocusOut:
      if (!control().perte_du_focus || !is_real_loss(static_cast<QFocusEvent *>(event)->reason())) break;
      // By the time the program is idle the window may be gone.
      context_.dispatcher.run_when_idle([view = QPointer<ControlView>(this)] {
        if (view) déclencher(view->control().perte_du_focus);
      });
      break;
    case QEvent::MouseButtonPress:
      if (!control().clic || !is_clicked_by_press() || !widget_->isEnabled()) break;
      click();
      return true;
    case QEvent::MouseButtonDblClick:
      if (!control().double_clic || !widget_->isEnabled()) break;
      double_click();
      return true;
    case QEvent::KeyPress:
      if (!is_enter(static_cast<QKeyEvent &>(*event)) || takes_enter()) break;
      run([this] { entrer(context_.window, control()); });
      return true;
    default: break;
  }
  return false;
}

}  // namespace ardane
