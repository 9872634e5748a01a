// What this process has cost so far.
#pragma once

namespace ardane {

/// CPU time since its start, in milliseconds.
double cpu_milliseconds();

/// Memory that stands in RAM, in KiB; 0 where the system does not tell.
long resident_kib();

}  // namespace ardane
