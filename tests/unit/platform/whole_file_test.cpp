#include "platform/whole_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "support/fake_world.h"
#include "support/limits.h"

namespace ardane {
namespace {

namespace fs = std::filesystem;

class WholeFile : public testing::Test {
 protected:
  fs::path path() const { return dossier.fichier("fichier"); }
  void write(const std::string &bytes) const { std::ofstream(path(), std::ios::binary) << bytes; }

  DossierTemporaire dossier;
};

TEST_F(WholeFile, IsReadByteByByteWhateverItsSize) {
  for (const std::size_t size : {0UL, 1UL, 16383UL, 16384UL, 16385UL, 100000UL}) {
    std::string bytes(size, '\r');
    if (size > 1) bytes[size / 2] = '\0';
    write(bytes);
    EXPECT_EQ(octets_du_fichier(path()), bytes) << size;
  }
}

TEST_F(WholeFile, IsNotReadBeyondWhatWasAskedFor) {
  write("douze octets");
  EXPECT_EQ(octets_du_fichier(path(), 12), "douze octets");
  EXPECT_EQ(octets_du_fichier(path(), 11), std::nullopt);
}

TEST_F(WholeFile, IsNoneWhereThereIsNoFileOrNoPlainOne) {
  EXPECT_EQ(octets_du_fichier(path()), std::nullopt);
  EXPECT_EQ(octets_du_fichier(dossier.chemin()), std::nullopt);
}

TEST_F(WholeFile, IsNoneForAPipeWhichWouldBeWaitedFor) {
  ASSERT_EQ(mkfifo(path().c_str(), S_IRUSR | S_IWUSR), 0);
  EXPECT_EQ(octets_du_fichier(path()), std::nullopt);
}

TEST_F(WholeFile, IsNoneWhereItMayNotBeRead) {
  write("secret");
  fs::permissions(path(), fs::perms::none);
  const SansPrivilège ordinary;
  EXPECT_EQ(octets_du_fichier(path()), std::nullopt);
}

TEST_F(WholeFile, IsNoneWhereAReadFailsOnItsWay) {
  EXPECT_EQ(octets_du_fichier("/proc/self/mem"), std::nullopt) << "its first page is never there";
}

}  // namespace
}  // namespace ardane
