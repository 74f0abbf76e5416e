// The configuration of one print queue in place of the one that all queues share.
#pragma once

#include <string>

namespace App {

// True when the print scheduler has started the program.
bool RunByScheduler();

// The configuration file to read in place of `common`: vextorin.d/QUEUE.conf beside it, if the
// scheduler runs the program for that queue and there is such a file; else `common` itself.
std::string QueueConfiguration(const std::string& common);

}  // namespace App
