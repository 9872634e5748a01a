// The screen, sound, help and the command line.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <fstream>

#include "front/qt/help_window.h"
#include "front/qt/on_demand.h"
#include "front/qt/options.h"
#include "front/qt/screen.h"

namespace ardane {
namespace {

TEST(ScreenQt, MeasuresThePrimaryScreen) {
  const ScreenQt screen;
  EXPECT_EQ(screen.largeur(), 1280);
  EXPECT_EQ(screen.hauteur(), 1024);
  EXPECT_EQ(screen.bits_par_pixel(), QGuiApplication::primaryScreen()->depth());
  const QRect zone = QGuiApplication::primaryScreen()->availableGeometry();
  EXPECT_EQ(screen.zone_de_travail(),
            (Rect{zone.x(), zone.y(), zone.x() + zone.width(), zone.y() + zone.height()}));
  ASSERT_EQ(screen.modes().size(), 1U);
  EXPECT_EQ(screen.modes()[0].largeur, 1280);
}

TEST(SoundOnDemand, AMissingFileAndAMissingDeviceAreSilent) {
  SoundOnDemand sound;
  testing::internal::CaptureStderr();
  sound.jouer("/nulle/part.wav");
  sound.jouer(std::string(ARDANE_RESOURCES) + "/carte_ok.wav");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(DesktopOptions, AreReadByName) {
  const std::array words{"ardane", "--programme", "/jeu", "--pret-et-quitter"};
  const DesktopOptions options = read_options(words.size(), words.data());
  EXPECT_EQ(options.programme, "/jeu");
  EXPECT_TRUE(options.prêt_et_quitter);
  EXPECT_FALSE(options.démonstration);
  EXPECT_EQ(options.erreur, "");
}

TEST(DesktopOptions, UnknownAndIncompleteOnesAreToldInFrench) {
  const std::array unknown{"ardane", "--zut"};
  EXPECT_EQ(read_options(unknown.size(), unknown.data()).erreur, "Option inconnue ou incomplète : --zut");
  const std::array incomplete{"ardane", "--demonstration"};
  EXPECT_EQ(read_options(incomplete.size(), incomplete.data()).erreur,
            "Option inconnue ou incomplète : --demonstration");
}

class Help : public testing::Test {
 protected:
  void write(const std::string &name, const std::string &text) const {
    QDir(folder.path()).mkpath("aide");
    std::ofstream(folder.filePath("aide/").toStdString() + name) << text;
  }
  QTextBrowser &open(int context) {
    help.ouvrir(folder.filePath("ARDANE.HLP").toStdString(), context);
    return *help.window()->findChild<QTextBrowser *>("page_aide");
  }
  QTemporaryDir folder;
  HelpQt help;
};

TEST_F(Help, OpensThePageOfTheContext) {
  write("contextes.txt", "10\tjouer.html#ici\n65\tparam.html\n");
  write("jouer.html", "<h1>Jouer</h1><p id='ici'>Cliquez.</p>");
  write("param.html", "<p>Paramétrer</p>");
  EXPECT_TRUE(open(10).toPlainText().contains("Cliquez."));
  EXPECT_TRUE(help.window()->isVisible());
  EXPECT_EQ(open(10).source().fragment(), "ici");
  EXPECT_TRUE(open(65).toPlainText().contains("Param"));
}

TEST_F(Help, AMissingPageIsTold) {
  write("contextes.txt", "10\tabsente.html\n");
  EXPECT_TRUE(open(10).toPlainText().startsWith("La page d'aide numéro 10 est introuvable"));
  EXPECT_TRUE(open(99).toPlainText().startsWith("La page d'aide numéro 99 est introuvable"));
}

TEST_F(Help, AMissingFolderIsTold) {
  EXPECT_TRUE(open(10).toPlainText().startsWith("La page d'aide numéro 10 est introuvable"));
}

TEST_F(Help, SearchesThePageAndSaysWhenThereIsNothing) {
  write("contextes.txt", "10\tjouer.html\n");
  write("jouer.html", "<p>Cliquez sur la carte.</p>");
  QTextBrowser &page = open(10);
  auto *search = help.window()->findChild<QLineEdit *>("recherche_aide");
  auto *result = help.window()->findChild<QLabel *>("résultat_recherche");
  QTest::keyClicks(search, "carte");
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_EQ(page.textCursor().selectedText(), "carte");
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_EQ(page.textCursor().selectedText(), "carte") << "goes on from the top";
  EXPECT_EQ(result->text(), "");
  QTest::keyClicks(search, "zzz");
  QTest::keyClick(search, Qt::Key_Return);
  EXPECT_NE(result->text(), "");
}

}  // namespace
}  // namespace ardane
