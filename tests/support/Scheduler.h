// A print scheduler of a test's own: CUPS with its folders in a temporary one, reached through a
// socket there, and the program installed for it. Nothing of the system's own scheduler is touched.
#pragma once

#include "tests/support/Program.h"
#include "tests/support/Run.h"
#include "tests/support/TempFolder.h"

#include <sys/types.h>

#include <string>
#include <string_view>

namespace Support {

class Scheduler {
 public:
  // Why none can be started here; empty when it can.
  static std::string obstacle();

  // With that configuration of the filter.
  explicit Scheduler(const Lines& configuration = {"filter", "insert=auto"});
  ~Scheduler();

  void stop();

  // A command that speaks to this scheduler, parted by blanks.
  Finished run(std::string_view command, const Environment& more = {}) const;
  // The same of vextorin-queue.
  Finished tool(std::string_view arguments) const;

  // A queue whose device keeps what a printer would get; of a PostScript printer, or without PPD.
  void addQueue(const std::string& name) const;
  void addRawQueue(const std::string& name) const;

  // Submits a job to a queue by lp with options; the job's name. `environment`: the client's.
  std::string submit(const std::string& queue, std::string_view job, std::string_view options = {},
                     const Environment& environment = {}) const;
  // The environment of a client whose locale has decimal commas. It is made for the test: systems
  // have it seldom.
  Environment germanClient() const;
  // Waits until nothing more happens to the job: "completed", "stopped" or "held".
  std::string outcome(const std::string& job) const;
  // What the printer got of it, once it is complete; empty, with a test failure, when it isn't.
  std::string printed(const std::string& job) const;

  // The folders in which its commands find each other, vextorin-queue among them.
  std::string toolPath() const;
  std::string ppd(const std::string& queue) const;  // the file's name
  std::string programs() const;  // the folder with the scheduler's `filter` and `backend`
  std::string file(std::string_view name) const { return folder.file(name); }
  // Writes a file below its folder and returns the full name.
  std::string write(std::string_view name, std::string_view bytes) const {
    return folder.write(name, bytes);
  }
  std::string log() const;

 private:
  void writeConfiguration() const;
  void install(const Lines& configuration) const;
  void start();

  TempFolder folder;
  pid_t process = -1;
};

}  // namespace Support
