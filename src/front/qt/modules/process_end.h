// An end of the process that runs nothing more.
#pragma once

namespace ardane {

/// Has the process end at once when it comes to its end, with the code that it then has and what was written
/// handed on: for a thread that stays behind, which the destructors of libraries must not meet.
void abréger_la_fin();

}  // namespace ardane
