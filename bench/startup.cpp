// Start to end of a one-page job without a barcode, against /bin/true: several hundred starts of
// each in turn, so that the ratio holds on a busy machine. Prints the medians.
//
//   bench_startup [program [starts]]
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

extern char** environ;

namespace {

std::string Write(const std::string& name, const std::string& text) {
  const std::string path = "/tmp/vextorin-startup-" + std::to_string(getpid()) + name;
  std::ofstream(path) << text;
  return path;
}

std::string OnePage() {
  std::string page = "%!PS-Adobe-3.0\n/Helvetica findfont 10 scalefont setfont\n";
  for (int line = 0; line < 60; ++line) {
    page += "72 " + std::to_string(720 - line * 10) + " moveto (Line " + std::to_string(line) +
            " of the page, which costs 12.50 EUR) show\n";
  }
  return page + "showpage\n";
}

// Microseconds from start to end.
double Time(std::vector<std::string> words, const std::string& input) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, input.c_str(), O_RDONLY, 0);
  for (const int out : {1, 2}) {
    posix_spawn_file_actions_addopen(&actions, out, "/dev/null", O_WRONLY, 0);
  }
  const auto begin = std::chrono::steady_clock::now();
  pid_t child = 0;
  int status = 1;
  if (posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ) == 0) {
    waitpid(child, &status, 0);
  }
  const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - begin;
  posix_spawn_file_actions_destroy(&actions);
  if (status != 0) {
    std::fprintf(stderr, "%s failed\n", arguments[0]);
    std::exit(1);
  }
  return time.count();
}

double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                   values.end());
  return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
  const std::string program = argc > 1 ? argv[1] : "build/release/bin/vextorin";
  const int starts = argc > 2 ? std::atoi(argv[2]) : 500;
  const std::string job = Write(".ps", OnePage()), ini = Write(".conf", "filter\n");
  std::vector<double> plain, ours, ratios;
  for (int start = 0; start < starts; ++start) {
    plain.push_back(Time({"/bin/true"}, job));
    ours.push_back(Time({program, "--inifile=" + ini, "user", "title", "1", ""}, job));
    ratios.push_back(ours.back() / plain.back());
  }
  std::printf("/bin/true %.0f us   %s %.0f us   %.2f x\n", Median(plain), program.c_str(),
              Median(ours), Median(ratios));
  std::remove(job.c_str());
  std::remove(ini.c_str());
}
