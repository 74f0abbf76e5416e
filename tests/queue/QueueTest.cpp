// Jobs through queues of a real scheduler: printed by lp, wired by vextorin-queue, kept as a
// printer would get them, rendered and read back.
#include "tests/support/Decode.h"
#include "tests/support/Scheduler.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <set>

namespace {

using namespace Support;

class Queue : public testing::Test {
 protected:
  void SetUp() override {
    const std::string obstacle = Scheduler::obstacle();
    if (!obstacle.empty()) GTEST_SKIP() << "No scheduler can be started: " << obstacle;
  }

  static void add(const Scheduler& scheduler, const std::string& queue, const std::string& mode) {
    const Finished added = scheduler.tool("add " + queue + " --mode " + mode);
    ASSERT_EQ(added.status, 0) << added.errors;
    const bool fewer = mode == "psboth" || mode == "pcl" || mode == "any";
    EXPECT_EQ(added.output.find("printer's now") != std::string::npos, fewer) << added.output;
  }
};

std::string Page(const std::string& data) {
  return "50 400 moveto ($_vxrs --barcode=20 --data=" + data +
         " --width=80 --height=20 $_vxre) show showpage\n";
}

std::string Job(const Lines& pages) {
  std::string job = "%!PS-Adobe-3.0\n%%Pages: " + std::to_string(pages.size()) +
                    "\n%%EndComments\n/Courier findfont 9 scalefont setfont\n";
  int number = 0;
  for (const std::string& data : pages) {
    ++number;
    job += "%%Page: " + std::to_string(number) + ' ' + std::to_string(number) +
           "\n/Courier findfont 9 scalefont setfont\n" + Page(data);
  }
  return job + "%%EOF\n";
}

const std::string kPclJob =
    "\033E\033&a600h1200VBefore $_vxrs --barcode=20 --data=PCL123 --width=60 $_vxre after\f\033E";

// What is read from each page of a job, pages parted by "|".
std::string Read(const std::string& job) {
  const Rendering rendering = Render(job, 150);
  EXPECT_EQ(rendering.messages, "");
  std::string read;
  for (const Support::Page& page : rendering.pages) {
    std::multiset<std::string> sorted;
    for (const Symbol& symbol : Decode(page, 4)) sorted.insert(symbol.data);
    if (&page != &rendering.pages.front()) read += '|';
    for (const std::string& data : sorted) read += data + ' ';
  }
  return read;
}

TEST_F(Queue, PrintsBarcodesInEveryMode) {
  const Lines configuration = {"filter", "insert=auto"};
  const Scheduler scheduler(configuration);
  for (const char* mode : {"pre", "psboth", "any"}) {
    SCOPED_TRACE(mode);
    scheduler.addQueue(mode);
    add(scheduler, mode, mode);
    const std::string printed =
        scheduler.printed(scheduler.submit(mode, Job({"Queue1", "Queue2"})));
    EXPECT_EQ(Read(printed), "Queue1 |Queue2 ");
  }
  Program direct{.settings = configuration};
  for (const char* mode : {"pcl", "any"}) {
    SCOPED_TRACE(mode);
    scheduler.addQueue(mode);
    add(scheduler, mode, mode);
    EXPECT_EQ(scheduler.printed(scheduler.submit(mode, kPclJob)), direct.run(kPclJob).output);
  }
  scheduler.addRawQueue("raw");
  add(scheduler, "raw", "raw");
  EXPECT_EQ(Read(scheduler.printed(scheduler.submit("raw", Job({"Raw1"}), "-o raw"))), "Raw1 ");
  EXPECT_EQ(scheduler.printed(scheduler.submit("raw", kPclJob)), direct.run(kPclJob).output);

  // A queue without the filter takes PCL as ever, text still prints, PDF through the converters.
  scheduler.addQueue("other");
  EXPECT_EQ(scheduler.printed(scheduler.submit("other", kPclJob)), kPclJob);
  EXPECT_NE(scheduler.printed(scheduler.submit("pcl", "plain text\n")), "");
}

TEST_F(Queue, LeavesPagesToTheScheduler) {
  const Scheduler scheduler;
  for (const char* mode : {"pre", "psboth"}) {
    scheduler.addQueue(mode);
    add(scheduler, mode, mode);
  }
  scheduler.addRawQueue("raw");
  add(scheduler, "raw", "raw");
  const struct {
    const char *queue, *options, *read;
  } kRows[] = {
      {"pre", "-n 2", "First1 |First1 |Second2 |Second2 "},
      {"pre", "-o number-up=2", "First1 Second2 "},
      {"pre", "-o page-ranges=2", "Second2 "},
      {"pre", "-o landscape", "First1 |Second2 "},
      {"pre", "-n 2 -o number-up=2 -o landscape", "First1 Second2 |First1 Second2 "},
      // The banner is a page of its own.
      {"pre", "-o job-sheets=standard,none", "|First1 |Second2 "},
      // Nothing of that is made for jobs that arrive as PostScript.
      {"psboth", "-n 2 -o number-up=2 -o page-ranges=2", "First1 |Second2 "},
      // The real backend makes the copies.
      {"raw", "-n 2", "First1 |Second2 |First1 |Second2 "},
  };
  for (const auto& [queue, options, read] : kRows) {
    SCOPED_TRACE(std::string(queue) + ' ' + options);
    const std::string job = scheduler.submit(queue, Job({"First1", "Second2"}), options);
    EXPECT_EQ(Read(scheduler.printed(job)), read);
  }
}

// A client's language reaches the filters, and with it decimal commas.
TEST_F(Queue, PrintsForClientsWithDecimalCommas) {
  const Lines configuration = {"filter", "insert=auto", "modulewidth=0.33"};
  const Scheduler scheduler(configuration);
  const Environment client = scheduler.germanClient();
  ASSERT_EQ(scheduler.run("locale decimal_point", client).output, ",\n") << "install locales";
  scheduler.write("installed/lib/cups/backend/capture",
                  "#!/bin/bash\n[ $# = 0 ] || { cat; printf '%%%.1f\\n' 1,5; } >" +
                      scheduler.file("printed/") + "$PRINTER-$1\n");
  for (const char* mode : {"pre", "any"}) {
    SCOPED_TRACE(mode);
    scheduler.addQueue(mode);
    add(scheduler, mode, mode);
    const std::string job = Job({"First1"});
    std::string printed = scheduler.printed(scheduler.submit(mode, job, {}, client));
    ASSERT_TRUE(printed.ends_with("%1,5\n")) << printed;  // so the filters had commas
    EXPECT_EQ(Read(printed), "First1 ");
    printed.resize(printed.size() - 5);
    if (mode == std::string("any")) {
      EXPECT_EQ(printed, Program{.settings = configuration}.run(job).output);
    }
  }
}

TEST_F(Queue, KeepsApartWhatPrintsAtOnce) {
  constexpr int kQueues = 5;
  constexpr int kJobs = 20;
  const Scheduler scheduler;
  Lines jobs;
  for (int queue = 0; queue < kQueues; ++queue) {
    const std::string name = "q" + std::to_string(queue);
    scheduler.addQueue(name);
    add(scheduler, name, "pre");
  }
  for (int number = 0; number < kJobs; ++number)
    for (int queue = 0; queue < kQueues; ++queue) {
      const std::string name = "q" + std::to_string(queue);
      jobs.push_back(scheduler.submit(name, Job({"Mark" + name + 'n' + std::to_string(number)})));
    }
  int number = 0;
  for (const std::string& job : jobs) {
    const std::string printed = scheduler.printed(job);
    const std::string mark =
        "Mark" + job.substr(0, job.find('-')) + 'n' + std::to_string(number++ / kQueues);
    EXPECT_NE(printed.find("BEGIN OF BARCODE"), std::string::npos) << job;
    EXPECT_EQ(printed.find("$_vxrs"), std::string::npos) << job;
    // Rendering them all would take a minute; the barcode names what it says.
    if (number % 25 == 0) {
      EXPECT_EQ(Read(printed), mark + ' ');
    }
  }
}

TEST_F(Queue, TellsWhyABarcodeOrAJobFailed) {
  const Scheduler scheduler({"filter", "insert=auto", "trace=warning"});
  const std::string common = "installed/lib/cups/filter/vextorin.conf";
  scheduler.addQueue("pre");
  add(scheduler, "pre", "pre");
  scheduler.addRawQueue("raw");
  add(scheduler, "raw", "raw");
  const std::string bad =
      "%!PS-Adobe-3.0\n%%Page: 1 1\n/Courier findfont 9 scalefont setfont 50 400 moveto "
      "($_vxrs --barcode=13 --data=40063A133931 --text=hide $_vxre) show showpage\n";
  EXPECT_NE(scheduler.printed(scheduler.submit("pre", bad)), "");
  const std::string state = scheduler.run("lpstat -p pre").output;
  EXPECT_NE(state.find("\n\tvextorin: page 1: EAN-13 takes digits only ('A' at 6)\n"),
            std::string::npos)
      << state;

  // A file of the queue's own takes the place of the configuration.
  const Finished refused = scheduler.tool("add pre --conf " + scheduler.write("x", "width=abc\n"));
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.errors.find(":1: width=abc  WRONG: Invalid barcode width"), std::string::npos);
  const std::string own = scheduler.write("x", "filter\nremove\n");
  ASSERT_EQ(scheduler.tool("add pre --conf " + own).status, 0);
  scheduler.write(common, "filter\nwidth=abc\n");
  EXPECT_EQ(Read(scheduler.printed(scheduler.submit("pre", Job({"Own1"})))), "Own1 ");
  ASSERT_EQ(scheduler.tool("remove pre").status, 0);
  ASSERT_EQ(scheduler.tool("add pre").status, 0);
  EXPECT_EQ(scheduler.outcome(scheduler.submit("pre", bad)), "stopped");
  const std::string job = scheduler.submit("raw", bad);
  EXPECT_EQ(scheduler.outcome(job), "held");
  for (const char* queue : {"pre", "raw"}) {
    const std::string failed = scheduler.run(std::string("lpstat -p ") + queue).output;
    EXPECT_NE(failed.find("vextorin: Wrong configuration in line 2 of "), std::string::npos)
        << failed;
  }
  scheduler.write(common, "filter\n");
  ASSERT_EQ(scheduler.run("lp -i " + job + " -H resume").status, 0);
  EXPECT_NE(scheduler.printed(job), "");
}

TEST_F(Queue, ACancelledJobLeavesNothing) {
  const Scheduler scheduler;
  const auto processes = [&] {
    return scheduler.run("pgrep -f " + scheduler.programs() + "/(filter|backend)/").output;
  };
  scheduler.addQueue("pre");
  scheduler.addRawQueue("raw");
  // The device takes nothing.
  scheduler.write("installed/lib/cups/backend/capture", "#!/bin/bash\n[ $# = 0 ] || sleep 60\n");
  std::string pages = "%!PS-Adobe-3.0\n";
  while (pages.size() < 4'000'000) pages += "%%Page: 1 1\n(text) pop showpage\n";
  for (const std::string mode : {"pre", "raw"}) {
    SCOPED_TRACE(mode);
    add(scheduler, mode, mode);
    const std::string job = scheduler.submit(mode, pages);
    for (int tries = 0; tries < 500 && processes().empty(); ++tries) usleep(20'000);
    usleep(300'000);
    EXPECT_NE(processes(), "");
    EXPECT_EQ(scheduler.run("cancel " + job).status, 0);
    for (int tries = 0; tries < 500 && !processes().empty(); ++tries) usleep(20'000);
    EXPECT_EQ(processes(), "");
    EXPECT_EQ(scheduler.run("find " + scheduler.file("spool/tmp") + " -type f").output, "");
  }
}

}  // namespace
