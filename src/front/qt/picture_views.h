// The views of controls that show pictures.
#pragma once

#include <QFrame>

#include "front/qt/control_view.h"
#include "front/qt/map_view.h"

namespace ardane {

/// A picture by itself, outside a map's viewport.
class PictureView : public ControlView {
 public:
  PictureView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  bool is_clicked_by_press() const override { return true; }

  Image shown_;
};

/// A picture that the keyboard reaches, and a screen reader takes for a button.
class PictureButtonView : public ControlView {
 public:
  PictureButtonView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  QRect place() const override;

  Image shown_;
};

/// A box that holds pictures.
class PictureBoxView : public ControlView {
 public:
  PictureBoxView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  bool is_clicked_by_press() const override { return true; }
};

class MapControlView : public ControlView {
 public:
  MapControlView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  bool takes_enter() const override { return true; }
};

}  // namespace ardane
