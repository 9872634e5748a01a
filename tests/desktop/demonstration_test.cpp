// The demonstration as it is asked for: what it tells, and the pictures that it leaves.
#include <gmock/gmock.h>

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <fstream>
#include <set>

#include "front/qt/appearance.h"
#include "started_program.h"

namespace ardane {
namespace {

/// What it tells, without the folder and the names of the provinces, which are drawn by lot.
constexpr const char *transcript = R"(Démonstration : une partie du jeu des provinces, au niveau Facile.
Image : 01-Publicité gratuite....png
Image : 02-Création du fichier Info.png
Image : 03-carte.png
Image : 04-nouvelle_partie.png
Province 10 sur 110. Score : 999998
Province 20 sur 110. Score : 999997
Province 30 sur 110. Score : 999996
Province 40 sur 110. Score : 999995
Province 50 sur 110. Score : 999994
Image : 05-milieu.png
Image : 06-enregistrer.png
Image : 07-reprendre.png
Province 60 sur 110. Score : 999993
Province 70 sur 110. Score : 999992
Province 80 sur 110. Score : 999991
Province 90 sur 110. Score : 999989
Province 100 sur 110. Score : 999988
Image : 08-fin.png
Province 110 sur 110. Score : 999987
Image : 09-Joli score dans la catégorie.png
Image : 10-Affichage_scores.png
Image : 11-Stats.png
Image : 12-paramétrage.png
Image : 13-A propos....png
Image : 14-Pompe.png
Image : 15-Edition.png
Image : 16-Palette.png
Partie finie : 12 erreurs, score 999987.
)";

/// Whether there is a bar of the colour of titles with letters on it.
bool has_a_title(const QImage &picture) {
  for (int y = 0; y < picture.height(); ++y) {
    int ground = 0, letters = 0;
    for (int x = 0; x < picture.width(); ++x) {
      const QColor colour = picture.pixelColor(x, y);
      if (colour == QColor(0x24, 0x3c, 0x5a)) ++ground;
      if (ground > 0 && colour.lightness() > 200) ++letters;
    }
    if (ground > 100 && letters > 0) return true;
  }
  return false;
}

class Demonstration : public testing::Test {
 protected:
  void run(const QString &where, const QString &of = QStringLiteral(ARDANE_PROGRAM)) {
    program.start(of, {"--demonstration", where});
    ASSERT_TRUE(program.waitForFinished(end_ms));
    output = QString::fromUtf8(program.readAllStandardOutput());
  }

  const QTemporaryDir folder;
  QProcess program;
  QString output;
};

TEST_F(Demonstration, PlaysAGameWithItsWindowsAndLeavesAPictureOfEach) {
  const QDir pictures(folder.filePath("album"));
  run(pictures.path());
  EXPECT_EQ(program.exitCode(), 0);
  output.remove(pictures.path() + '/');
  output.replace(QRegularExpression("110 : [^.]+\\."), "110.");
  EXPECT_EQ(to_utf8(output), transcript);
  std::set<QByteArray> kinds;
  const QStringList files = pictures.entryList(QDir::Files);
  for (const QString &file : files) {
    EXPECT_TRUE(output.contains("Image : " + file + '\n')) << to_utf8(file);
    const QImage picture(pictures.filePath(file));
    EXPECT_EQ(picture.size(), QSize(1280, 1024)) << to_utf8(file);
    EXPECT_EQ(picture.pixelColor(1279, 1023), QColor(0x3a, 0x4a, 0x58)) << "the ground of the desktop";
    kinds.insert(QByteArray(reinterpret_cast<const char *>(picture.constBits()), picture.sizeInBytes()));
  }
  EXPECT_EQ(kinds.size(), 16U) << "each shows something else";
  EXPECT_TRUE(has_a_title(QImage(pictures.filePath(QStringLiteral("02-Création du fichier Info.png")))));
}

TEST_F(Demonstration, WhereTheMapHasNoRoomItSaysWhyItStops) {
  std::ofstream(folder.filePath("petit.json").toStdString())
      << R"({"screens": [{"name": "petit", "x": 0, "y": 0, "width": 300, "height": 200, "dpr": 1}]})";
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("QT_QPA_PLATFORM", "offscreen:configfile=" + folder.filePath("petit.json"));
  program.setProcessEnvironment(environment);
  run(folder.filePath("album"));
  EXPECT_EQ(program.exitCode(), 1);
  EXPECT_THAT(to_utf8(output),
              testing::ContainsRegex(
                  "La démonstration s'est arrêtée : pas un pixel libre pour la province [0-9]+\\.\n$"));
}

TEST_F(Demonstration, WhereTheProgramHasNoFilesItEndsWithTheErrorThatItIsTold) {
  const QString bare = folder.filePath("ardane");
  ASSERT_TRUE(QFile::copy(QStringLiteral(ARDANE_PROGRAM), bare));
  run(folder.filePath("album"), bare);
  EXPECT_EQ(program.exitCode(), 1);
  EXPECT_TRUE(output.endsWith("02-Erreur.png\n")) << to_utf8(output);
}

TEST_F(Demonstration, WhereNoPictureCanBeLeftItSaysSo) {
  const QString file = folder.filePath("fichier");
  ASSERT_TRUE(QFile(file).open(QIODevice::WriteOnly));
  run(file + "/album");
  EXPECT_EQ(program.exitCode(), 1);
  EXPECT_EQ(output, "");
  EXPECT_EQ(QString::fromUtf8(program.readAllStandardError()),
            "Impossible d'écrire dans le dossier " + file + "/album\n");
}

}  // namespace
}  // namespace ardane
