// The bytes of score files, slot by slot, for tests and not through the program's own writer.
#pragma once

#include "support/slot_bytes.h"

namespace ardane {

struct OctetsScores : OctetsCases {
  OctetsScores() {
    texte("Version 1.00 du 24/02/2007");
    for (const int code : {4, 1, 4, 2, 3}) entier16(code);
    for (int p = 1; p <= 110; ++p) entier16(0);
    entier16(1);
  }
};

constexpr int case_nombre = 2;   ///< number of places in the order
constexpr int case_ordre = 3;    ///< the first of them
constexpr int case_inhibée = 7;  ///< province 1
constexpr int case_langue = 117;
constexpr int case_premier_score = 118;

}  // namespace ardane
