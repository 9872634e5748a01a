#include "front/pilote/journal.h"

#include <gtest/gtest.h>

#include <sstream>

namespace ardane {
namespace {

TEST(Nombre_json, whole_measures_have_no_decimals) {
  EXPECT_EQ(nombre_json(606).dump(), "606");
  EXPECT_EQ(nombre_json(-0.0).dump(), "0");
  EXPECT_EQ(nombre_json(-12).dump(), "-12");
}

TEST(Nombre_json, others_have_as_many_as_they_need) {
  EXPECT_EQ(nombre_json(103.2).dump(), "103.2");
  EXPECT_EQ(nombre_json(0.1 + 0.2).dump(), "0.30000000000000004");
}

TEST(Journal, every_line_is_one_object_with_its_letters_as_they_are) {
  std::ostringstream sortie;
  Journal journal(sortie);
  journal.écrire({{"boîte", "Où ?\nIci \"même\" \\"}, {"z", 1}, {"a", nullptr}});
  EXPECT_EQ(sortie.str(), "{\"boîte\":\"Où ?\\nIci \\\"même\\\" \\\\\",\"z\":1,\"a\":null}\n");
}

TEST(Journal, bytes_that_are_no_text_are_replaced) {
  std::ostringstream sortie;
  Journal journal(sortie);
  journal.écrire({{"erreur", "caf\xE9"}});
  EXPECT_EQ(sortie.str(), "{\"erreur\":\"caf\xEF\xBF\xBD\"}\n");
}

}  // namespace
}  // namespace ardane
