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

class LabelView : public ControlView {
 public:
  LabelView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  bool eventFilter(QObject *watched, QEvent *event) override;
  QLabel &label() { return static_cast<QLabel &>(widget()); }
  void fit_text(bool several_lines);

  struct Fitted {
    QString text;
    Police police;
    QSize size;
    friend bool operator==(const Fitted &, const Fitted &) = default;
  };
  std::optional<Fitted> fitted_;
};

/// A group box.
class FrameView : public ControlView {
 public:
  FrameView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;
};

class LineView : public ControlView {
 public:
  LineView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  /// A counter's empty place is not to be seen as a box of its colour.
  bool is_shown() const override;
  QLineEdit &line() { return static_cast<QLineEdit &>(widget()); }
};

/// A text box of several lines.
class PageView : public ControlView {
 public:
  PageView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  QPlainTextEdit &page() { return static_cast<QPlainTextEdit &>(widget()); }
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
  void sync_mark();

  Image icon_;
};

class ListView : public ControlView {
 public:
  ListView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  QListWidget &list() const { return static_cast<QListWidget &>(widget()); }
  int marked_row() const;

  std::vector<std::string> items_;
};

class BarView : public ControlView {
 public:
  BarView(Contrôle &control, const ViewContext &context, QWidget *parent);
  void sync() override;

 private:
  QScrollBar &bar() { return static_cast<QScrollBar &>(widget()); }
};

}  // namespace ardane
