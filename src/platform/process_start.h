// What a process is started with: its arguments and its three streams.
#pragma once

#include <string>
#include <vector>

namespace ardane {

/// The arguments behind the program's name, UTF-8.
std::vector<std::string> arguments_du_programme(int argc, char **argv);

/// The standard streams carry bytes: no line end is changed, and what is written is UTF-8.
void ouvrir_les_flux();

/// The same for a program of the desktop, whose words go to the console that it was started from, if any.
void ouvrir_les_flux_du_bureau();

}  // namespace ardane
