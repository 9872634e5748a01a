// The screen, sound and the command line.
#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>

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

}  // namespace
}  // namespace ardane
