#include "front/qt/help_window.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>

#include "front/qt/appearance.h"
#include "front/qt/child.h"
#include "front/qt/help_page.h"
#include "front/qt/modal_companion.h"

namespace ardane {
namespace {

/// Wide enough for the table of levels.
constexpr QSize smallest{740, 400};
constexpr int usual_height = 760;
constexpr int longest_question = 200;
/// Of the layout and the page, left and right of a picture.
constexpr int beside_pictures = 60;
/// What a window manager may put around the window.
constexpr QSize decoration{16, 48};

QString folder_of(const std::string &help_file) {
  return QFileInfo(to_qt(help_file)).absolutePath() + QStringLiteral("/aide");
}

int widest_picture(const QString &folder) {
  int widest = 0;
  for (const QFileInfo &file : QDir(folder).entryInfoList({QStringLiteral("*.png")}, QDir::Files))
    widest = std::max(widest, QImageReader(file.filePath()).size().width());
  return widest;
}

}  // namespace

class HelpQt::Window : public QWidget {
 public:
  Window() : QWidget(nullptr, Qt::Window), companion_(*this) {
    setObjectName(QStringLiteral("aide"));
    setWindowTitle(QStringLiteral("Aide – L’Ardane et ses provinces"));
    page_.setObjectName(QStringLiteral("page_aide"));
    search_.setObjectName(QStringLiteral("recherche_aide"));
    search_.setPlaceholderText(QStringLiteral("Chercher dans toute l’aide"));
    search_.setClearButtonEnabled(true);
    search_.setMaxLength(longest_question);
    status_.setObjectName(QStringLiteral("résultat_recherche"));
    next_.setObjectName(QStringLiteral("mot_suivant"));
    lay_out();
    connect(&back_, &QPushButton::clicked, &page_, &QTextBrowser::backward);
    connect(&page_, &QTextBrowser::backwardAvailable, &back_, &QPushButton::setEnabled);
    connect(&contents_, &QPushButton::clicked, &page_, [this] { page_.open_contents(); });
    connect(&next_, &QPushButton::clicked, &page_, [this] { go_to_mark(false); });
    connect(&search_, &QLineEdit::returnPressed, this, [this] { search(); });
    connect(&search_, &QLineEdit::textChanged, this, [this](const QString &typed) {
      page_.seek(typed);
      tell();
    });
    page_.shown = [this](const std::optional<QString> &sought) {
      if (sought) search_.setText(*sought);
      tell();
    };
    on_key(QKeySequence::Find, [this] { begin_search(); });
    on_key(QKeySequence(Qt::Key_F3), [this] { go_to_mark(false); });
    on_key(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { go_to_mark(true); });
    on_key(QKeySequence(Qt::Key_Escape), [this] { close(); });
  }

  void open(const QString &folder, int context) {
    if (!testAttribute(Qt::WA_Resized)) fit_to(widest_picture(folder));
    search_.clear();
    page_.open(folder, context);
    page_.setFocus();
    show();
    raise();
    activateWindow();
  }

 protected:
  /// Keys that the field and the buttons have no use for.
  void keyPressEvent(QKeyEvent *event) override {
    const bool scrolls = event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
    if (scrolls && !page_.hasFocus()) QCoreApplication::sendEvent(&page_, event);
  }

 private:
  template <class F>
  void on_key(const QKeySequence &keys, F &&act) {
    connect(make_child<QShortcut>(keys, this), &QShortcut::activated, this, std::forward<F>(act));
  }

  void lay_out() {
    back_.setEnabled(false);
    search_.setAccessibleName(QStringLiteral("Rechercher dans l’aide"));
    page_.setAccessibleName(QStringLiteral("Page d’aide"));
    auto *top = make_child<QHBoxLayout>();
    top->addWidget(&back_);
    top->addWidget(&contents_);
    top->addWidget(&search_);
    auto *bottom = make_child<QHBoxLayout>(&found_);
    bottom->setContentsMargins({});
    bottom->addStretch();
    bottom->addWidget(&status_);
    bottom->addWidget(&next_);
    auto *all = make_child<QVBoxLayout>(this);
    all->addLayout(top);
    all->addWidget(&page_);
    all->addWidget(&found_);
    found_.hide();
  }

  /// As large as the pictures ask for, within the work area.
  void fit_to(int picture) {
    const int wanted = picture + beside_pictures + page_.verticalScrollBar()->sizeHint().width();
    resize(QSize(std::max(wanted, smallest.width()), usual_height)
               .boundedTo(screen()->availableSize() - decoration));
  }

  void begin_search() {
    search_.setFocus(Qt::ShortcutFocusReason);
    search_.selectAll();
  }

  void search() {
    if (search_.text().trimmed().isEmpty()) return;
    page_.search(search_.text().trimmed());
    page_.setFocus();
  }

  void go_to_mark(bool backwards) {
    if (page_.marks() == 0) return begin_search();
    page_.go_to_mark(backwards);
    tell();
  }

  void tell() {
    found_.setVisible(page_.marks() > 0);
    const qsizetype at = page_.mark_at_cursor();
    status_.setText(at == 0 ? QStringLiteral("Dans cette page\u00A0: %1").arg(page_.marks())
                            : QStringLiteral("Dans cette page\u00A0: %1 sur %2").arg(at).arg(page_.marks()));
  }

  ModalCompanion companion_;
  QPushButton back_{QStringLiteral("Page précédente")};
  QPushButton contents_{QStringLiteral("Sommaire")};
  QLineEdit search_;
  HelpPage page_;
  QWidget found_;  ///< shown while the page has words that are sought
  QLabel status_;
  QPushButton next_{QStringLiteral("Suivant (F3)")};
};

HelpQt::HelpQt() = default;
HelpQt::~HelpQt() = default;

void HelpQt::ouvrir(const std::string &fichier, int contexte) {
  if (window_ == nullptr) window_ = std::make_unique<Window>();
  window_->open(folder_of(fichier), contexte);
}

QWidget *HelpQt::window() const {
  return window_.get();
}

}  // namespace ardane
