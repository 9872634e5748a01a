// What stands in the place of a data file and is no plain file is never opened: a pipe would be waited for.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QWidget>
#include <filesystem>

#include "front/qt/help_page.h"
#include "front/qt/one_instance.h"
#include "front/qt/window_memory.h"
#include "stage.h"

namespace ardane {
namespace {

class SpecialFiles : public testing::Test {
 protected:
  QString pipe(const char *name) const {
    const QString path = folder.filePath(QString::fromUtf8(name));
    EXPECT_EQ(mkfifo(path.toUtf8().constData(), S_IRUSR | S_IWUSR), 0);
    return path;
  }

  QTemporaryDir folder;
};

TEST_F(SpecialFiles, APipeIsNoPicture) {
  pipe("drapeau.png");
  pipe("drapeau@2x.png");
  const CatalogueImages catalogue("drapeau|drapeau.png|20|10\n");
  PictureStore pictures(catalogue, folder.path());
  EXPECT_EQ(pictures.unreadable(), QStringList{"drapeau"});
  for (const Detail detail : {Detail::single, Detail::doubled})
    EXPECT_TRUE(pictures.pixmap(catalogue.chercher("drapeau"), detail).isNull());
}

TEST_F(SpecialFiles, APipeKeepsNoWindowsPlace) {
  const WindowMemory memory(pipe("fenetre.ini").toStdString());
  QWidget window;
  EXPECT_FALSE(memory.restore(window));
  EXPECT_EQ(memory.scale(), std::nullopt);
  memory.keep(window, 2);
  EXPECT_EQ(memory.scale(), std::nullopt);
}

TEST_F(SpecialFiles, APipeIsNoPageOfTheHelpNorItsList) {
  pipe("contextes.txt");
  pipe("index.html");
  HelpPage page;
  page.open(folder.path(), 10);
  page.open_contents();
  EXPECT_FALSE(page.toPlainText().contains("province"));
}

TEST_F(SpecialFiles, SettingsBelowALinkThatLeadsToItselfAreToldApartByTheirNames) {
  const std::filesystem::path loop = folder.filePath("loop").toStdString();
  std::filesystem::create_symlink(loop, loop);
  const OneInstance one(loop / "registre");
  const OneInstance other(loop / "autre");
  EXPECT_EQ(one.place(), OneInstance::Place::first);
  EXPECT_EQ(other.place(), OneInstance::Place::first);
}

TEST_F(SpecialFiles, SettingsNamedFromAFolderThatHasGoneAreNoReasonToDie) {
  const std::filesystem::path before = std::filesystem::current_path();
  const std::filesystem::path gone = folder.filePath("gone").toStdString();
  std::filesystem::create_directory(gone);
  std::filesystem::current_path(gone);
  std::filesystem::remove(gone);
  EXPECT_NO_THROW(const OneInstance instance("registre"));
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace ardane
