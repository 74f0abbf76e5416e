// vextorin-queue: what it changes and takes back, what it refuses, what it finds.
#include "tests/support/Decode.h"
#include "tests/support/Scheduler.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

namespace {

using namespace Support;
namespace fs = std::filesystem;

class QueueTool : public testing::Test {
 protected:
  void SetUp() override {
    const std::string obstacle = Scheduler::obstacle();
    if (!obstacle.empty()) GTEST_SKIP() << "No scheduler can be started: " << obstacle;
  }
};

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// The only line of errors of a command that fails.
std::string Refusal(const Finished& finished) {
  EXPECT_EQ(finished.status, 1) << finished.output;
  const Lines lines = Split(finished.errors);
  EXPECT_EQ(lines.size(), 1u) << finished.errors;
  return lines.empty() ? "" : lines[0];
}

TEST_F(QueueTool, TakesBackWhatItChanged) {
  Scheduler scheduler;
  scheduler.addQueue("q");
  scheduler.addRawQueue("r");
  ASSERT_EQ(scheduler.run("lpadmin -p q -o PageSize=Letter").status, 0);
  const std::string before = ReadFile(scheduler.ppd("q"));
  const std::string device = scheduler.run("lpstat -v r").output;
  for (const char* mode : {"pre", "psboth", "pcl", "any"}) {
    SCOPED_TRACE(mode);
    const Finished added = scheduler.tool(std::string("add q --mode ") + mode);
    ASSERT_EQ(added.status, 0) << added.errors;
    const std::string after = ReadFile(scheduler.ppd("q"));
    EXPECT_TRUE(Holds(after, "*DefaultPageSize: Letter"));
    EXPECT_TRUE(Holds(after, "*NickName: \"A printer, vextorin\""));
    EXPECT_EQ(Split(scheduler.tool("list").output).size(), 1u);
    EXPECT_TRUE(Holds(scheduler.tool("list").output, mode));
    EXPECT_EQ(fs::exists(scheduler.file("root/vextorin.types")),
              mode == std::string("pcl") || mode == std::string("any"));
    const Finished checked = scheduler.tool("check");
    EXPECT_EQ(checked.status, 0) << checked.output << checked.errors;
    ASSERT_EQ(scheduler.tool("remove q").status, 0);
    EXPECT_EQ(ReadFile(scheduler.ppd("q")), before);
    EXPECT_FALSE(fs::exists(scheduler.file("root/vextorin.types")));
    EXPECT_FALSE(fs::exists(scheduler.file("root/vextorin")));
  }
  // A change of the administrator's in between stays.
  ASSERT_EQ(scheduler.tool("add q").status, 0);
  ASSERT_EQ(scheduler.tool("add q --mode pcl").status, 0);
  ASSERT_EQ(scheduler.tool("add r --mode raw").status, 0);
  EXPECT_TRUE(Holds(scheduler.run("lpstat -v r").output, ": vextorin:capture:"));
  ASSERT_EQ(scheduler.run("lpadmin -p q -o PageSize=A5").status, 0);
  ASSERT_EQ(scheduler.tool("remove --all").status, 0);
  const std::string removed = ReadFile(scheduler.ppd("q"));
  EXPECT_TRUE(Holds(removed, "*DefaultPageSize: A5"));
  EXPECT_FALSE(Holds(removed, "vextorin"));
  EXPECT_EQ(Split(removed).size(), Split(before).size());
  EXPECT_EQ(scheduler.run("lpstat -v r").output, device);

  // With the scheduler stopped, as a package may find it.
  ASSERT_EQ(scheduler.tool("add q --mode any").status, 0);
  ASSERT_EQ(scheduler.tool("add r --mode raw").status, 0);
  scheduler.stop();
  ASSERT_EQ(scheduler.tool("remove --all").status, 0);
  EXPECT_EQ(ReadFile(scheduler.ppd("q")), removed);
  EXPECT_FALSE(Holds(ReadFile(scheduler.file("root/printers.conf")), "vextorin:"));
  EXPECT_FALSE(fs::exists(scheduler.file("root/vextorin.types")));
}

TEST_F(QueueTool, RefusesInASentenceAndChangesNothing) {
  const Scheduler scheduler;
  scheduler.addQueue("q");
  scheduler.addRawQueue("r");
  ASSERT_EQ(scheduler.run("lpadmin -p r -c class").status, 0);
  const std::string before = ReadFile(scheduler.ppd("q"));
  EXPECT_TRUE(Holds(Refusal(scheduler.tool("add nope")), "there is no queue 'nope'"));
  EXPECT_TRUE(Holds(Refusal(scheduler.tool("add ../q")), "'../q' is no name of a queue"));
  EXPECT_TRUE(Holds(Refusal(scheduler.tool("add q --mode foo")), "the mode is pre, psboth"));
  EXPECT_TRUE(Holds(Refusal(scheduler.tool("add r")), "--mode raw"));
  EXPECT_TRUE(Holds(Refusal(scheduler.tool("add class")), "is a class"));
  EXPECT_TRUE(Holds(Refusal(scheduler.tool("remove q")), "vextorin is not in queue 'q'"));
  EXPECT_TRUE(Holds(Refusal(scheduler.tool("add q --conf /nowhere")), "/nowhere can't be read"));
  EXPECT_TRUE(Holds(Refusal(scheduler.tool("frobnicate")), "there is no command"));
  EXPECT_TRUE(Holds(Refusal(scheduler.tool("add q --conf")), "--conf needs a file"));
  for (const char* command : {"add q r", "remove q r", "check q r", "test q r"})
    EXPECT_TRUE(Holds(Refusal(scheduler.tool(command)), "one queue at a time: 'q' or 'r'"));
  // A driver that would be passed over.
  scheduler.write("driver.ppd",
                  before + "*cupsFilter: \"application/vnd.cups-raster 0 rastertopwg\"\n");
  ASSERT_EQ(
      scheduler.run("lpadmin -p d -E -v capture:/x -P " + scheduler.file("driver.ppd")).status, 0);
  EXPECT_TRUE(Holds(Refusal(scheduler.tool("add d --mode psboth")), "use --mode pre"));
  EXPECT_EQ(scheduler.tool("add d --mode pcl").status, 0);
  EXPECT_TRUE(Holds(ReadFile(scheduler.ppd("d")),
                    "*cupsFilter2: \"application/vnd.cups-raster application/vnd.cups-raster 0 "
                    "rastertopwg\"\n"));
  ASSERT_EQ(scheduler.tool("remove d").status, 0);

  const std::string filter = scheduler.programs() + "/filter/vextorin";
  fs::permissions(filter, fs::perms(0775));
  EXPECT_TRUE(Holds(Refusal(scheduler.tool("add q")), "chmod 0755 " + filter));
  EXPECT_EQ(ReadFile(scheduler.ppd("q")), before);
  EXPECT_FALSE(fs::exists(scheduler.file("root/vextorin")));
  fs::permissions(filter, fs::perms(0755));
}

// What stops an administrator who has no rights or no disk to write to.
TEST_F(QueueTool, ChangesNothingWhereItMayNot) {
  if (geteuid() != 0) GTEST_SKIP() << "Root alone can be another user, or mount";
  const Scheduler scheduler;
  scheduler.addQueue("q");
  scheduler.addQueue("wired");
  scheduler.addRawQueue("r");
  ASSERT_EQ(scheduler.tool("add wired").status, 0);
  const auto state = [&] {
    return scheduler.run("find " + scheduler.file("root") + " -type f -exec cksum {} +").output +
           scheduler.run("lpstat -v").output;
  };
  const std::string before = state();
  const std::string tool = ' ' + scheduler.file("installed/sbin/vextorin-queue") + ' ';
  const std::string asUser = "setpriv --reuid 65534 --regid 65534 --clear-groups --";
  for (const auto& [command, sentence] :
       Environment{{"add q", "only an administrator can change queues: try sudo vextorin-queue"},
                   {"add r --mode raw", "only an administrator can change queues"},
                   {"remove wired", "only an administrator can change queues"},
                   {"remove --all", "only an administrator can change queues"},
                   {"list", "only an administrator can read "},
                   {"check", "only an administrator can read "},
                   {"test wired", "only an administrator can read "}})
    EXPECT_TRUE(Holds(Refusal(scheduler.run(asUser + tool + command)), sentence)) << command;
  EXPECT_EQ(state(), before);

  const std::string script = scheduler.write(
      "script", "mount --bind \"$1\" \"$1\" && mount -o remount,bind,ro \"$1\" && shift && \"$@\"");
  const std::string readOnly = "unshare --mount sh " + script + ' ';
  const std::string root = scheduler.file("root");
  if (scheduler.run(readOnly + root + " true").status != 0)
    GTEST_SKIP() << "Nothing can be mounted";
  for (const std::string command : {"add q", "add r --mode raw", "remove wired"})
    EXPECT_EQ(Refusal(scheduler.run(readOnly + root + tool + command)),
              "vextorin-queue: " + root + " can't be written: is the file system read-only?");
  const std::string own = scheduler.write("own.conf", "filter\n");
  const std::string filters = scheduler.programs() + "/filter";
  EXPECT_EQ(Refusal(scheduler.run(readOnly + filters + tool + "add q --conf " + own)),
            "vextorin-queue: " + filters + " can't be written: is the file system read-only?");
  EXPECT_EQ(state(), before);
}

// Systems that packages are installed in have no /dev/fd, which process substitution takes.
TEST(QueueScripts, DoWithoutProcessSubstitution) {
  for (const char* name : {"packaging/vextorin-queue", "packaging/vextorin-backend"}) {
    const std::string script = ReadFile(VEXTORIN_SOURCE_FOLDER "/" + std::string(name));
    EXPECT_TRUE(script.starts_with("#!/bin/bash\n")) << name;
    EXPECT_FALSE(Holds(script, "<(")) << name;
  }
}

// The commands that a check prints against its findings.
Lines Repairs(const Finished& checked) {
  Lines repairs;
  for (const std::string& line : Split(checked.output))
    if (line.starts_with("  repair: ")) repairs.push_back(line.substr(10));
  return repairs;
}

TEST_F(QueueTool, FindsWhatIsWrongAndSaysWhatRepairsIt) {
  const Scheduler scheduler({"filter"});
  const std::string queue = "a;b,[c]";  // what shells and lists take otherwise
  scheduler.addQueue(queue);
  scheduler.addRawQueue("r");
  ASSERT_EQ(scheduler.tool("add " + queue + " --mode pcl").status, 0);
  const std::string filter = scheduler.programs() + "/filter/vextorin";
  const auto shell = [&](const std::string& commands) {
    const std::string script = scheduler.write("script", commands);
    const Finished done = scheduler.run("bash " + script, {{"PATH", scheduler.toolPath()}});
    EXPECT_EQ(done.status, 0) << commands << '\n' << done.errors;
  };
  const struct {
    std::string damage, finding;
    bool byRoot = false;
  } kRows[] = {
      {"chmod 0775 " + filter, "the filter " + filter + " can be written by others than root"},
      {"chmod 4755 " + filter, "the filter " + filter + " runs as its owner"},
      {"chmod 0700 " + filter, "can't be run by user"},
      {"chown lp " + filter, "belongs to another user than root", true},
      {"chmod 0775 " + scheduler.programs() + "/filter", "/filter can be written by others"},
      {"chmod 0600 " + filter + ".conf", "can't read " + filter + ".conf", true},
      {"mkdir " + filter + ".d; chmod 0700 " + filter + ".d; echo filter >" + filter +
           ".d/'a;b,[c].conf'",
       "can't read " + filter + ".d/a;b,[c].conf", true},
      {"echo insert=auto >" + filter + ".conf", "has no line 'filter', so jobs are not filtered"},
      {"rm " + scheduler.file("root/vextorin.convs"), "PCL jobs are no type of their own"},
      {"echo >>" + scheduler.file("root/vextorin.types"), "PCL jobs are no type of their own"},
      {"lpadmin -p 'a;b,[c]' -o raw-default=true", "jobs of queue '" + queue + "' are raw"},
      {"sed -i 's/hp-pcl application/hp-pcl /; s/^.cupsF/*cupsf/' " +
           scheduler.file("root/ppd/'a;b,[c].ppd'"),
       "has a line that CUPS reads otherwise: *cupsfilter2: "},
  };
  const std::string before = ReadFile(scheduler.ppd(queue));
  for (const auto& row : kRows) {
    if (row.byRoot && geteuid() != 0) continue;
    SCOPED_TRACE(row.damage);
    shell(row.damage);
    const Finished checked = scheduler.tool("check " + queue);
    EXPECT_EQ(checked.status, 1);
    EXPECT_TRUE(Holds(checked.output, row.finding)) << checked.output;
    for (const std::string& repair : Repairs(checked))
      if (!repair.starts_with("apt ")) shell(repair);
    const Finished again = scheduler.tool("check " + queue);
    EXPECT_EQ(again.status, 0) << again.output;
  }
  EXPECT_TRUE(Holds(scheduler.tool("check r").output, "repair: vextorin-queue add r --mode raw"));
  scheduler.write("installed/lib/cups/filter/vextorin.conf", "filter\nwidth=abc\n");
  EXPECT_TRUE(Holds(scheduler.tool("check").output, "width=abc  WRONG: Invalid barcode width"));
  scheduler.write("installed/lib/cups/filter/vextorin.conf", "filter\n");
  fs::rename(scheduler.programs() + "/lib", scheduler.file("lib"));
  EXPECT_TRUE(Holds(scheduler.tool("check").output, "libvextorin9.so.0"));
  fs::rename(scheduler.file("lib"), scheduler.programs() + "/lib");
  EXPECT_EQ(scheduler.tool("remove " + queue).status, 0);
}

// The file of a queue is the administrator's to edit in the meantime.
TEST_F(QueueTool, TakesItsLinesOutOfAnEditedPpd) {
  const Scheduler scheduler;
  scheduler.addQueue("q");
  const std::string ppd = scheduler.ppd("q");
  std::string plain = ReadFile(ppd);
  const auto edited = [&](const std::string& lines, const std::string& program) {
    scheduler.write("root/ppd/q.ppd", plain + lines);
    EXPECT_EQ(scheduler.run("sed -i " + program + " " + ppd).status, 0);
    return ReadFile(ppd);
  };
  const std::string driver = "*cupsFilter: \"application/vnd.cups-raster 0 rastertopwg\"\n";
  for (const auto& [mode, end] : Environment{{"pre", "s/$//"}, {"pcl", "s/$/\\r/"}}) {
    const std::string before = edited(driver, end);
    for (const std::string damage : {"/queue:.end/d", "s/cupsFilter2/cupsfilter2/"})
      for (const bool addedAgain : {false, true}) {
        SCOPED_TRACE(mode + ' ' + damage);
        scheduler.write("root/ppd/q.ppd", before);
        ASSERT_EQ(scheduler.tool("add q --mode " + mode).status, 0);
        ASSERT_EQ(scheduler.tool("add q --mode " + mode).status, 0);
        EXPECT_EQ(scheduler.run("sed -i " + damage + " " + ppd).status, 0);
        if (addedAgain) {
          EXPECT_EQ(scheduler.tool("add q").status, 0);
          EXPECT_TRUE(Holds(ReadFile(ppd), "*Font Symbol"));
        }
        ASSERT_EQ(scheduler.tool("remove q").status, 0);
        EXPECT_EQ(ReadFile(ppd), before);
      }
  }
}

TEST_F(QueueTool, PrintsATestPage) {
  const Scheduler scheduler;
  scheduler.addQueue("q");
  ASSERT_EQ(scheduler.tool("add q").status, 0);
  const std::string capture = scheduler.file("captured.ps");
  const Finished tested = scheduler.tool("test q --capture " + capture);
  ASSERT_EQ(tested.status, 0) << tested.errors;
  const Rendering page = Render(ReadFile(capture), 300);
  ASSERT_EQ(page.pages.size(), 1u) << page.messages;
  // Readers look for the others only where nothing else is.
  const std::string read = Describe(Decode(page.pages[0], 20));
  for (const char* data : {"VEXTORIN-128", "VEXTORIN39", "4006381333931", "40170725",
                           "036000291452", "12345670", "VEXTORIN-PDF417", "VEXTORIN-QR"})
    EXPECT_TRUE(Holds(read, data)) << data << '\n' << read;
  EXPECT_EQ(Split(ReadFile(capture), "% BEGIN OF BARCODE").size(), 11u);
  const Finished sent = scheduler.tool("test q");
  ASSERT_EQ(sent.status, 0) << sent.errors;
  EXPECT_TRUE(Holds(scheduler.printed("q-1"), "BEGIN OF BARCODE"));
}

}  // namespace
