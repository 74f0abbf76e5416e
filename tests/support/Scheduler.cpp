#include "tests/support/Scheduler.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <thread>

namespace Support {
namespace fs = std::filesystem;
namespace {

using namespace std::chrono_literals;

constexpr const char* kDaemon = "/usr/sbin/cupsd";
constexpr const char* kSystemPrograms = "/usr/lib/cups";
constexpr const char* kSystemConfiguration = "/var/opt/share/vextorin/vextorin.conf";

// A device "capture:FOLDER" writes each job, with its copies, to FOLDER/QUEUE-NUMBER.
constexpr const char* kCaptureBackend = R"(#!/bin/bash
[ $# = 0 ] && exit
copies=1
[ "${6:-}" ] && copies=$4
for ((i = 0; i < copies; ++i)); do cat ${6:+"$6"}; done >"${DEVICE_URI#capture:}/$PRINTER-$1"
)";

bool IsRoot() {
  return geteuid() == 0;
}

// Waits for something, but not for ever.
template <class Condition>
bool Await(const Condition& condition, std::chrono::seconds limit = 60s) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(20ms);
  }
  return true;
}

// The account that the scheduler runs filters with.
std::string User() {
  return IsRoot() ? "lp" : getpwuid(geteuid())->pw_name;
}
std::string Group() {
  return IsRoot() ? "lp" : getgrgid(getegid())->gr_name;
}

void GiveToUser(const fs::path& path) {
  const passwd* const account = getpwnam(User().c_str());
  ASSERT_TRUE(account);
  ASSERT_EQ(chown(path.c_str(), account->pw_uid, account->pw_gid), 0);
}

}  // namespace

std::string Scheduler::obstacle() {
  for (const char* program : {kDaemon, "/usr/sbin/lpadmin", "/usr/bin/lp", "/usr/sbin/cupsfilter",
                              "/usr/lib/cups/filter/pstops"})
    if (!fs::exists(program)) return std::string(program) + " is missing: install cups";
  if (IsRoot() && !getpwnam("lp")) return "there is no user lp";
  if (fs::exists(kSystemConfiguration))
    return std::string(kSystemConfiguration) + " would take the place of the tests' configuration";
  return {};
}

Scheduler::Scheduler(const Lines& configuration) {
  fs::permissions(folder.path(), fs::perms(0755));
  install(configuration);
  for (const char* name : {"root/ppd", "log", "spool/tmp", "cache", "state", "printed"})
    fs::create_directories(folder.path() / name);
  for (const char* name : {"spool", "spool/tmp", "cache", "state", "printed"})
    GiveToUser(folder.path() / name);
  writeConfiguration();
  start();
}

Scheduler::~Scheduler() {
  stop();
}

void Scheduler::stop() {
  if (process <= 0) return;
  kill(process, SIGTERM);
  if (!Await([&] { return waitpid(process, nullptr, WNOHANG) == process; }, 10s)) {
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
  }
  process = -1;
}

std::string Scheduler::programs() const {
  return file("installed/lib/cups");
}
std::string Scheduler::toolPath() const {
  return file("installed/sbin") + ":/usr/sbin:/usr/bin:/sbin:/bin";
}
std::string Scheduler::ppd(const std::string& queue) const {
  return file("root/ppd/" + queue + ".ppd");
}
std::string Scheduler::log() const {
  return ReadFile(file("log/error"));
}

// The scheduler takes no LD_LIBRARY_PATH for its filters, so they are those of the build folder,
// which find their library beside them.
void Scheduler::install(const Lines& configuration) const {
  const Finished installed =
      Support::Run({.arguments = {VEXTORIN_CMAKE, "--install", VEXTORIN_BUILD_FOLDER, "--component",
                                  "program", "--prefix", file("installed")}});
  ASSERT_EQ(installed.status, 0) << installed.errors;
  const fs::path own = programs();
  const auto copied = fs::copy_options::overwrite_existing;
  fs::copy_file(VEXTORIN_PROGRAM, own / "filter/vextorin", copied);
  fs::create_directories(own / "lib");
  fs::copy_file(VEXTORIN_LIBRARY_FILE, own / "lib/libvextorin9.so.0", copied);
  for (const char* kind : {"filter", "backend", "daemon"}) {
    fs::create_directories(own / kind);
    for (const auto& entry : fs::directory_iterator(fs::path(kSystemPrograms) / kind))
      if (!fs::exists(own / kind / entry.path().filename()))
        fs::create_symlink(entry.path(), own / kind / entry.path().filename());
  }
  folder.write("installed/lib/cups/backend/capture", kCaptureBackend);
  fs::permissions(own / "backend/capture", fs::perms(0755));
  std::string lines;
  for (const std::string& line : configuration) lines += line + '\n';
  folder.write("installed/lib/cups/filter/vextorin.conf", lines);
}

void Scheduler::writeConfiguration() const {
  std::string files;
  const auto set = [&](const std::string& name, const std::string& value) {
    files += name + ' ' + value + '\n';
  };
  set("ServerBin", programs());
  for (const auto& [name, place] : Environment{{"ServerRoot", "root"},
                                               {"ServerKeychain", "root"},
                                               {"RequestRoot", "spool"},
                                               {"TempDir", "spool/tmp"},
                                               {"CacheDir", "cache"},
                                               {"StateDir", "state"},
                                               {"AccessLog", "log/access"},
                                               {"ErrorLog", "log/error"},
                                               {"PageLog", "log/page"}})
    set(name, file(place));
  set("Printcap", "");
  set("User", User());
  set("Group", Group());
  set("SystemGroup", IsRoot() ? "root" : "sys");
  files += "SetEnv LOCPATH " + file("locales") + '\n';
  folder.write("root/cups-files.conf", files);
  folder.write("root/cupsd.conf",
               "Listen " + file("socket") +
                   "\nLogLevel warn\nBrowsing No\nWebInterface No\nJobKillDelay 5\n"
                   "ErrorPolicy retry-job\n"
                   "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                   "<Policy default>\nJobPrivateAccess all\nJobPrivateValues none\n"
                   "SubscriptionPrivateAccess all\nSubscriptionPrivateValues none\n"
                   "<Limit All>\nOrder deny,allow\nAllow all\n</Limit>\n</Policy>\n");
}

void Scheduler::start() {
  const std::string configuration = file("root/cupsd.conf");
  const std::string files = file("root/cups-files.conf");
  process = fork();
  ASSERT_GE(process, 0);
  if (process == 0) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);  // a test that is killed leaves none behind
    const bool inPlace = chdir("/") == 0 && freopen("/dev/null", "r", stdin) &&
                         freopen((folder.path() / "log/out").c_str(), "w", stdout) &&
                         dup2(STDOUT_FILENO, STDERR_FILENO) >= 0;
    if (inPlace)
      execl(kDaemon, kDaemon, "-f", "-c", configuration.c_str(), "-s", files.c_str(), nullptr);
    _exit(127);
  }
  EXPECT_TRUE(Await([&] { return run("lpstat -r").output == "scheduler is running\n"; }, 30s))
      << log() << ReadFile(file("log/out"));
}

Finished Scheduler::run(std::string_view command, const Environment& more) const {
  Environment environment = {{"CUPS_SERVER", file("socket")},
                             {"CUPS_SERVERROOT", file("root")},
                             {"LC_ALL", "C"},
                             {"PATH", "/usr/sbin:/usr/bin:/sbin:/bin"}};
  for (const auto& variable : more) {
    std::erase_if(environment, [&](const auto& own) { return own.first == variable.first; });
    environment.push_back(variable);
  }
  return Support::Run({.arguments = Split(command, " "), .environment = environment});
}

Finished Scheduler::tool(std::string_view arguments) const {
  return run(file("installed/sbin/vextorin-queue ") + std::string(arguments));
}

void Scheduler::addQueue(const std::string& name) const {
  const std::string plain = ReadFile(file("installed/share/ppd/vextorin/postscript.ppd"));
  std::string printer;
  bool ours = false;
  for (std::string line : Split(plain)) {
    if (line.ends_with(": begin")) ours = true;
    if (line.starts_with("*NickName")) line = "*NickName: \"A printer\"";
    if (!ours) printer += line + '\n';
    if (line.ends_with(": end")) ours = false;
  }
  const Finished made = run("lpadmin -p " + name + " -E -v capture:" + file("printed") + " -P " +
                            folder.write("printer.ppd", printer));
  ASSERT_EQ(made.status, 0) << made.errors;
}

void Scheduler::addRawQueue(const std::string& name) const {
  const Finished made = run("lpadmin -p " + name + " -E -v capture:" + file("printed"));
  ASSERT_EQ(made.status, 0) << made.errors;
}

std::string Scheduler::submit(const std::string& queue, std::string_view job,
                              std::string_view options, const Environment& environment) const {
  const std::string name = folder.write("job", job);
  const Finished sent =
      run("lp -d " + queue + (options.empty() ? "" : " ") + std::string(options) + " -- " + name,
          environment);
  EXPECT_EQ(sent.status, 0) << sent.errors;
  // "request id is QUEUE-NUMBER (1 file(s))", in the client's language
  const std::size_t begin = sent.output.find(' ' + queue + '-');
  if (begin == std::string::npos) return {};
  return sent.output.substr(begin + 1, sent.output.find(' ', begin + 1) - begin - 1);
}

Environment Scheduler::germanClient() const {
  const std::string name = "de_DE.UTF-8";
  fs::create_directories(file("locales"));
  const Finished made = Support::Run({.arguments = {"localedef", "--no-archive", "-i", "de_DE",
                                                    "-f", "UTF-8", file("locales/" + name)}});
  EXPECT_EQ(made.status, 0) << made.errors;
  return {{"LOCPATH", file("locales")}, {"LC_ALL", name}, {"LANG", name}};
}

std::string Scheduler::outcome(const std::string& job) const {
  std::string found;
  const auto ended = [&] {
    if (("\n" + run("lpstat -W completed -o").output).find("\n" + job + ' ') != std::string::npos) {
      found = "completed";
      return true;
    }
    const std::string open = "\n" + run("lpstat -l -W not-completed -o").output;
    const std::size_t begin = open.find("\n" + job + ' ');
    if (begin == std::string::npos) return false;
    const std::string about = open.substr(begin, open.find("queued for", begin) - begin);
    if (about.find("job-completed-with-errors") != std::string::npos) found = "stopped";
    if (about.find("job-hold") != std::string::npos) found = "held";
    return !found.empty();
  };
  return Await(ended) ? found : "still open after a minute";
}

std::string Scheduler::printed(const std::string& job) const {
  EXPECT_EQ(outcome(job), "completed") << log();
  return ReadFile(file("printed/" + job));
}

}  // namespace Support
