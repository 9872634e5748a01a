// Stage Régions: the player selects the provinces of a region one by one, and the last one submits them all.
#pragma once

#include "core/context.h"

namespace ardane {

/// A click on a province in stage Régions: it enters the selection or leaves it.
void ClicRégion(Contexte &c, int province);
/// Adds a province to the selection, which is not complete with it. Nothing is heard.
void Sélectionner_province(Contexte &c, int province);
/// Judges the whole selection.
void ValiderSélectionRégion(Contexte &c);

}  // namespace ardane
