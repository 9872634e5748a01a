#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "front/qt/child.h"
#include "front/qt/control_kinds.h"
#include "front/qt/picture_views.h"

namespace ardane {
namespace {

/// A button that takes clicks in its whole rectangle, not on its mark and text alone.
template <class Button>
class WholeArea : public Button {
 public:
  using Button::Button;

 protected:
  bool hitButton(const QPoint &place) const override { return this->rect().contains(place); }
};

}  // namespace

std::unique_ptr<ControlView> make_view(Contrôle &control, const ViewContext &context, QWidget *parent) {
  switch (control.genre) {
    case Genre::image:
      if (prend_le_clavier(control)) return std::make_unique<PictureButtonView>(control, context, parent);
      return std::make_unique<PictureView>(control, context, parent);
    case Genre::étiquette: return std::make_unique<LabelView>(control, context, parent);
    case Genre::cadre: return std::make_unique<FrameView>(control, context, parent);
    case Genre::texte:
      if (control.multiligne) return std::make_unique<PageView>(control, context, parent);
      return std::make_unique<LineView>(control, context, parent);
    case Genre::bouton:
      return std::make_unique<ButtonView>(control, context, make_child<QPushButton>(parent));
    case Genre::case_à_cocher:
      return std::make_unique<ButtonView>(control, context, make_child<WholeArea<QCheckBox>>(parent));
    case Genre::option:
      return std::make_unique<ButtonView>(control, context, make_child<WholeArea<QRadioButton>>(parent));
    case Genre::liste: return std::make_unique<ListView>(control, context, parent);
    case Genre::barre: return std::make_unique<BarView>(control, context, parent);
    case Genre::boîte_image: return std::make_unique<PictureBoxView>(control, context, parent);
    case Genre::vue: return std::make_unique<MapControlView>(control, context, parent);
    case Genre::menu: break;
  }
  return nullptr;
}

}  // namespace ardane
