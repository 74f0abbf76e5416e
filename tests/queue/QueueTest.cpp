// Jobs through queues of a real scheduler: printed by lp, wired by vextorin-queue, kept as a
// printer would get them, rendered and read back.
#include "tests/support/Decode.h"
#include "tests/support/Scheduler.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>

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
  scheduler.addQueue("pre");
  add(scheduler, "pre", "pre");
  const auto printed = [&](std::string_view options, const Environment& client = {}) {
    return Read(
        scheduler.printed(scheduler.submit("pre", Job({"First1", "Second2"}), options, client)));
  };
  EXPECT_EQ(printed("-n 2"), "First1 |First1 |Second2 |Second2 ");
  EXPECT_EQ(printed("-o number-up=2"), "First1 Second2 ");
  EXPECT_EQ(printed("-o page-ranges=2"), "Second2 ");
  EXPECT_EQ(printed("-o landscape"), "First1 |Second2 ");
  EXPECT_EQ(
      printed("-o job-sheets=standard,none", {{"LC_ALL", "de_DE.UTF-8"}, {"LANG", "de_DE.UTF-8"}}),
      "First1 |Second2 ");
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

}  // namespace
