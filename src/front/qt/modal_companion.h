// A window that stays usable while modal ones are up.
#pragma once

#include <QWidget>

namespace ardane {

/// Makes its window belong to the topmost modal window for as long as there is one: the toolkit locks out all
/// others. It watches the windows of the application while its own is shown, and belongs to it.
class ModalCompanion : public QObject {
 public:
  explicit ModalCompanion(QWidget &window);

 private:
  bool eventFilter(QObject *watched, QEvent *event) override;
  void belong_to(const QWidget *modal);

  QWidget &window_;
};

}  // namespace ardane
