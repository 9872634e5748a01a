// One view for each kind of control that shows text, takes a click or holds a choice.
#pragma once

#include <QAbstractButton>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>

#include "front/qt/control_view.h"

namespace ardane {

/// Gives a framed widget its control's border, or takes it away.
void sync_border(QFrame &frame, const Contrôle &control);

/// What a text was last fitted to: nothing is measured again while it stays.
struct Fitted {
  QString text;
  Police police;
  QSize size;
  Scale scale;
  friend bool operator==(const Fitted &, const Fitted &) = default;
};

class LabelView : public ControlView {
 public:
  LabelView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  bool is_clicked_by_press() const override { return true; }
  QRect place() const override;
  QLabel &label() { return static_cast<QLabel &>(widget()); }
  void fit_text(const QString &text, bool several_lines);

  std::optional<Fitted> fitted_;
};

/// A group box.
class FrameView : public ControlView {
 public:
  FrameView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  bool is_clicked_by_press() const override { return true; }
};

/// A box of one line, to type in or to show a number: a counter, whose digits fit it in every font and which
/// lies within its frame.
class LineView : public ControlView {
 public:
  LineView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  bool is_counter() const { return control().lecture_seule && control().fond.has_value(); }
  QRect place() const override;
  /// By how much a counter hangs out of the frame that it stands in.
  int overhang(const QRect &designed) const;
  void fit_digits();
  /// A counter's empty place is not to be seen as a box of its colour.
  bool is_shown() const override;
  void take_text(QString text);
  QLineEdit &line() { return static_cast<QLineEdit &>(widget()); }

  std::optional<Fitted> fitted_;
  mutable std::optional<QRect> framed_;  ///< the designed place that `overhang_` was measured for
  mutable int overhang_ = 0;
};

/// A text box of several lines. Here the line ends of the data meet the toolkit's.
class PageView : public ControlView {
 public:
  PageView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  void take_text();
  QPlainTextEdit &page() { return static_cast<QPlainTextEdit &>(widget()); }

  std::string text_;  ///< the data's, as last shown or taken
};

/// A push button, a check box or an option.
class ButtonView : public ControlView {
 public:
  ButtonView(Contrôle &control, const ViewContext &context, QAbstractButton *button);
  void sync() override;

 private:
  /// Marks that the style draws taller than the designed row reach over it evenly.
  QRect place() const override;
  QAbstractButton &button() const { return static_cast<QAbstractButton &>(widget()); }
  void sync_icon();
  void sync_mark();

  Image icon_;
  Scale icon_scale_;
};

class ListView : public ControlView {
 public:
  ListView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  /// Where nothing is chosen yet, the first key that moves the cursor chooses.
  bool eventFilter(QObject *watched, QEvent *event) override;
  QListWidget &list() const { return static_cast<QListWidget &>(widget()); }
  void fill();
  int first_choice(int key) const;
  int marked_row() const;

  Eléments items_;
};

class BarView : public ControlView {
 public:
  BarView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  QScrollBar &bar() { return static_cast<QScrollBar &>(widget()); }
};

}  // namespace ardane
