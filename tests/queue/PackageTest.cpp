// The Debian packages: what is in them, and that they come and go without a trace. They are
// installed below a folder, by the system's package tool, and nothing of the system changes.
#include "tests/support/Scheduler.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

namespace {

using namespace Support;
namespace fs = std::filesystem;

std::string Output(const Lines& command, const Environment& environment = {}) {
  const Finished finished = Support::Run(
      {.arguments = command, .environment = environment, .limit = std::chrono::seconds(200)});
  EXPECT_EQ(finished.status, 0) << command[0] << ": " << finished.output << finished.errors;
  return finished.output;
}

class Packages : public testing::Test {
 protected:
  void SetUp() override {
    if (!fs::exists("/usr/bin/dpkg-shlibdeps")) GTEST_SKIP() << "No dpkg-dev here";
    const mode_t before = umask(077);  // of whoever makes them
    Output({VEXTORIN_CPACK, "-G", "DEB", "--config", VEXTORIN_BUILD_FOLDER "/CPackConfig.cmake",
            "-B", folder.file("packages")});
    umask(before);
    for (const auto& entry : fs::directory_iterator(folder.path() / "packages"))
      if (entry.path().extension() == ".deb") packages.push_back(entry.path());
    ASSERT_EQ(packages.size(), 3u);
  }

  // A step of the package tool on a system below the folder.
  std::string dpkg(const Lines& step, const Environment& environment = {}) const {
    return Output(Join({"dpkg", "--root=" + system(), "--force-script-chrootless",
                        "--force-depends", "--log=/dev/null"},
                       step),
                  environment);
  }
  std::string system() const { return folder.file("system"); }
  void makeSystem() const {
    fs::create_directories(system() + "/var/lib/dpkg/updates");
    fs::create_directories(system() + "/var/lib/dpkg/info");
    folder.write("system/var/lib/dpkg/status", "");
  }
  std::string traces() const {
    return Output({"find", system(), "-path", system() + "/var/lib/dpkg", "-prune", "-o", "-path",
                   system() + "/*vextorin*", "-print"});
  }

  TempFolder folder;
  Lines packages;
};

TEST_F(Packages, AreWiredOutOfQueuesBeforeTheyGo) {
  if (geteuid() != 0) GTEST_SKIP() << "Packages are installed by root only";
  const std::string obstacle = Scheduler::obstacle();
  if (!obstacle.empty()) GTEST_SKIP() << "No scheduler can be started: " << obstacle;
  const Scheduler scheduler;
  scheduler.addQueue("q");
  scheduler.addRawQueue("r");
  const std::string before = ReadFile(scheduler.ppd("q"));
  ASSERT_EQ(scheduler.tool("add q --mode any").status, 0);
  ASSERT_EQ(scheduler.tool("add r --mode raw").status, 0);
  const Environment queues = {{"CUPS_SERVER", scheduler.file("socket")},
                              {"CUPS_SERVERROOT", scheduler.file("root")},
                              {"PATH", "/usr/sbin:/usr/bin:/sbin:/bin"}};
  makeSystem();
  dpkg(Join({"--install"}, packages), queues);
  const std::string conf = system() + "/etc/vextorin/vextorin.conf";
  const std::string documented = system() + "/var/opt/share/vextorin/vextorin.conf";
  EXPECT_EQ(fs::read_symlink(documented), "/etc/vextorin/vextorin.conf");
  EXPECT_EQ(Output({VEXTORIN_PROGRAM, "--check", conf}),
            conf + ":10: filter\n" + conf + ":14: insert=auto\n" + conf + ":17: jobfiles=deny\n" +
                conf + ":20: trace=warning\n" + conf + ": no mistakes\n");

  const std::string filter = system() + "/usr/lib/cups/filter/vextorin";
  EXPECT_EQ(Output({"readelf", "-d", filter}).find("RUNPATH"), std::string::npos);
  const Finished version = Support::Run(
      {.arguments = {filter, "--version"},
       .environment = {{"LD_LIBRARY_PATH", system() + "/usr/lib/" VEXTORIN_LIBRARY_ARCHITECTURE}}});
  EXPECT_EQ(version.status, 0) << version.errors;
  // Nobody but root may write what root runs.
  EXPECT_EQ(Output({"find", system() + "/usr", system() + "/etc", "-not", "-type", "l", "(",
                    "-perm", "/022", "-o", "-not", "-user", "root", ")", "-print"}),
            "");

  // And everybody may read it.
  EXPECT_EQ(
      Output({"find", system() + "/usr", system() + "/etc", "-not", "-perm", "-044", "-print"}),
      "");
  EXPECT_EQ(Output({"find", system() + "/usr", system() + "/etc", "-type", "d", "-not", "-perm",
                    "-055", "-print"}),
            "");

  // An upgrade leaves the queues and the administrator's configuration as they are.
  folder.write("system/etc/vextorin/vextorin.conf", "filter\n");
  dpkg(Join({"--force-confold", "--install"}, packages), queues);
  EXPECT_EQ(ReadFile(conf), "filter\n");
  EXPECT_EQ(Split(scheduler.tool("list").output).size(), 2u);
  const Lines names = {"vextorin", "libvextorin9-dev", "libvextorin9-0"};
  dpkg(Join({"--remove"}, names), queues);
  EXPECT_EQ(ReadFile(scheduler.ppd("q")), before);
  EXPECT_EQ(scheduler.run("lpstat -v r").output.find("vextorin:"), std::string::npos);
  EXPECT_EQ(ReadFile(conf), "filter\n");
  folder.write("system/etc/vextorin/vextorin.d/own.conf", "filter\n");
  dpkg(Join({"--purge"}, names), queues);
  EXPECT_EQ(traces(), "");
}

TEST_F(Packages, SayWhatTheyNeed) {
  const auto field = [&](const std::string& package, const char* name) {
    for (const std::string& file : packages)
      if (file.find('/' + package + '_') != std::string::npos)
        return Output({"dpkg-deb", "--field", file, name});
    return std::string();
  };
  EXPECT_NE(field("vextorin", "Depends").find("libvextorin9-0 (= "), std::string::npos);
  for (const char* loaded : {"libzint", "zlib1g", "libc6"})
    EXPECT_NE(field("libvextorin9-0", "Depends").find(loaded), std::string::npos) << loaded;
  for (const char* loaded : {"libfreetype6", "libfontconfig1"})
    EXPECT_NE(field("libvextorin9-0", "Recommends").find(loaded), std::string::npos) << loaded;
  if (!fs::exists("/usr/bin/lintian")) return;
  const Finished checked = Support::Run(
      {.arguments = Join({"lintian", "--no-cfg"}, packages), .limit = std::chrono::seconds(200)});
  EXPECT_EQ(("\n" + checked.output).find("\nE: "), std::string::npos) << checked.output;
}

}  // namespace
