#include "front/qt/help_window.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "front/qt/appearance.h"
#include "front/qt/child.h"

namespace ardane {
namespace {

QString folder_of(const std::string &help_file) {
  return QFileInfo(to_qt(help_file)).absolutePath() + QStringLiteral("/aide");
}

/// "page#anchor" of a context; empty if the list has none.
QString page_of(const QString &folder, int context) {
  QFile list(folder + QStringLiteral("/contextes.txt"));
  if (!list.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
  while (!list.atEnd()) {
    const QStringList fields = QString::fromUtf8(list.readLine()).trimmed().split(QLatin1Char('\t'));
    if (fields.size() == 2 && fields[0] == QString::number(context)) return fields[1];
  }
  return {};
}

QUrl url_of(const QString &folder, const QString &page) {
  QUrl url = QUrl::fromLocalFile(folder + QLatin1Char('/') + page.section(QLatin1Char('#'), 0, 0));
  url.setFragment(page.section(QLatin1Char('#'), 1));
  return url;
}

}  // namespace

class HelpQt::Window : public QWidget {
 public:
  Window() : QWidget(nullptr, Qt::Window) {
    setObjectName(QStringLiteral("aide"));
    setWindowTitle(QStringLiteral("Aide - L'Ardane et ses provinces"));
    resize(640, 560);
    page_.setObjectName(QStringLiteral("page_aide"));
    page_.setOpenLinks(true);
    page_.setOpenExternalLinks(false);
    search_.setObjectName(QStringLiteral("recherche_aide"));
    search_.setPlaceholderText(QStringLiteral("Rechercher dans la page"));
    search_.setClearButtonEnabled(true);
    status_.setObjectName(QStringLiteral("résultat_recherche"));
    lay_out();
    connect(&back_, &QPushButton::clicked, &page_, &QTextBrowser::backward);
    connect(&page_, &QTextBrowser::backwardAvailable, &back_, &QPushButton::setEnabled);
    connect(&search_, &QLineEdit::returnPressed, this, [this] { find_next(); });
    connect(&search_, &QLineEdit::textEdited, this, [this] { status_.clear(); });
    connect(make_child<QShortcut>(QKeySequence::Find, this), &QShortcut::activated, &search_,
            [this] { search_.setFocus(); });
    connect(make_child<QShortcut>(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this,
            &QWidget::close);
  }

  void open(const QString &folder, int context) {
    const QString page = page_of(folder, context);
    const QUrl url = url_of(folder, page);
    if (page.isEmpty() || !QFileInfo(url.toLocalFile()).isFile())
      page_.setPlainText(QStringLiteral("La page d'aide numéro %1 est introuvable dans le dossier « %2 ». "
                                        "Le jeu se joue très bien sans elle.")
                             .arg(context)
                             .arg(folder));
    else
      page_.setSource(url);
    // A window that the game waits in locks all others out, those opened above it excepted.
    setWindowModality(QApplication::activeModalWidget() == nullptr ? Qt::NonModal : Qt::ApplicationModal);
    show();
    raise();
    activateWindow();
  }

 private:
  void lay_out() {
    back_.setEnabled(false);
    auto *top = make_child<QHBoxLayout>();
    top->addWidget(&back_);
    top->addStretch();
    top->addWidget(&status_);
    top->addWidget(&search_);
    auto *all = make_child<QVBoxLayout>(this);
    all->addLayout(top);
    all->addWidget(&page_);
  }

  void find_next() {
    if (search_.text().isEmpty() || page_.find(search_.text())) return status_.clear();
    page_.moveCursor(QTextCursor::Start);
    if (!page_.find(search_.text())) status_.setText(QStringLiteral("Introuvable dans cette page"));
  }

  QPushButton back_{QStringLiteral("Page précédente")};
  QLabel status_;
  QLineEdit search_;
  QTextBrowser page_;
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
