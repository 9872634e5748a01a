// The processes of this machine, by their numbers.
#pragma once

namespace ardane {

/// This one's.
long numéro_du_processus();

/// False if there is certainly no such process.
bool peut_être_en_vie(long processus);

}  // namespace ardane
