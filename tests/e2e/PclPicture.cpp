#include "tests/e2e/PclPicture.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <numbers>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

namespace Support {
namespace {

constexpr double kShort = 0.45;  // of a dot, for the sake of interpreters' fill rules

class Painter {
 public:
  Painter(std::string_view text, int dpi, double side) : pcl(text) {
    page.dpi = dpi;
    page.width = page.height = static_cast<int>(side / 25.4 * dpi);
    page.gray.assign(static_cast<std::size_t>(page.width * page.height), 255);
  }

  Page paint() {
    expect("\033&f0S");
    underlining = !take("\033&d@");
    if (take("\033&a0h-20000V")) x = y = 0;
    while (!take("\033&f1S")) {
      if (!paintMove() && !paintRectangle() && !paintPlotted() && !skipText()) refuse();
    }
    if (!pcl.empty()) refuse();
    return page;
  }

 private:
  [[noreturn]] void refuse() const {
    throw std::runtime_error("not expected: " + std::string(pcl.substr(0, 40)));
  }
  bool take(std::string_view text) {
    if (!pcl.starts_with(text)) return false;
    pcl.remove_prefix(text.size());
    return true;
  }
  void expect(std::string_view text) {
    if (!take(text)) refuse();
  }
  bool match(const char* pattern) {
    static std::map<std::string, std::regex> known;
    const auto expression = known.try_emplace(pattern, pattern).first;
    if (!std::regex_search(pcl.begin(), pcl.end(), found, expression->second,
                           std::regex_constants::match_continuous)) {
      return false;
    }
    pcl.remove_prefix(static_cast<std::size_t>(found.length()));
    return true;
  }
  double number(std::size_t group) const { return std::stod("0" + digits(group)) * sign(group); }
  std::string digits(std::size_t group) const {
    const std::string text = found[group];
    return text.substr(text.find_first_of("0123456789."));
  }
  double sign(std::size_t group) const { return found[group].str()[0] == '-' ? -1 : 1; }
  double dots(double decipoints) const { return decipoints * page.dpi / 720; }

  bool paintMove() {
    if (match("\033&a([+-][0-9.]+)(H|h([+-][0-9.]+)V)")) {
      x += dots(number(1));
      if (found[3].matched) y += dots(number(3));
      return true;
    }
    if (!match("\033&a([+-][0-9.]+)V")) return false;
    y += dots(number(1));
    return true;
  }
  bool paintRectangle() {
    if (!match("\033\\*c(?:([0-9.]+)h)?(?:([0-9.]+)v)?([01])P")) return false;
    if (found[3] == "0" && underlining) refuse();  // it would join the bars
    if (found[1].matched) width = dots(number(1));
    if (found[2].matched) height = dots(number(2));
    fill(x, y, width, height, found[3] == "0" ? 0 : 255);
    return true;
  }
  bool paintPlotted() {
    if (!take("\033*p0P")) return false;
    if (width > 0) refuse();  // HP-GL/2 doesn't turn with the print direction, rectangles do
    expect("\033%1BIN\033%0A\033%1B");
    if (!match("SC0,([0-9.]+),0,([0-9.]+),2PR")) refuse();
    const double unitX = number(1) / 1016 * page.dpi, unitY = number(2) / 1016 * page.dpi;
    double penX = x, penY = y;
    if (match("TR0(?:SP0|SP1FT10,[0-9]+)RR([0-9.]+),-([0-9.]+)(?:FT)?TR1")) {
      fill(penX, penY, number(1) * unitX, number(2) * unitY, 255);
    }
    match("(?:PC[12](?:,[0-9]+){3})*");
    expect("SP1");
    while (!take("DF\033%0A\033*p1P")) {
      if (match("PU(-?[0-9.]+),(-?[0-9.]+)")) {
        penX += number(1) * unitX;
        penY -= number(2) * unitY;
      } else if (match("RR([0-9.]+),([0-9.]+)")) {
        const double tall = number(2) * unitY;
        fill(penX, penY - std::ceil(tall - 1e-6), number(1) * unitX, tall, 0);
      } else if (take("PM0")) {
        paintPolygon(penX, penY, unitX, unitY);
      } else if (match("\033%0A\033%1B")) {
        penX = x;
        penY = y;
      } else if (!match("(SP2)?(SD1,14,2,[01],4,[0-9.]+,5,[01],6,[03],7,[0-9]+SSDI-?[01],-?[01])?"
                        "LB[^\033\003]+\003")) {
        refuse();
      }
    }
    return true;
  }
  bool skipText() {
    return match("\033\\)0N\033\\)s[01]p[0-9.]+v[01]s[03]b[0-9]+T") ||
           match("\033&f0S(\033&a[0-9]+P)?\x0e[^\033\x0e\x0f]+\x0f(\033&a0P)?\033&f1S");
  }

  struct Corner {
    double x, y;
  };
  // Six corners, or a circle and perhaps a hole in it.
  void paintPolygon(double penX, double penY, double unitX, double unitY) {
    std::vector<Corner> corners = {{penX, penY}};
    if (match("PD((?:-?[0-9]+,-?[0-9]+,?){5})PM2FP")) {
      const std::string steps = found[1];
      for (std::size_t at = 0; at < steps.size();) {
        int right = 0, up = 0, length = 0;
        std::sscanf(&steps[at], "%d,%d%n", &right, &up, &length);
        corners.push_back({corners.back().x + right * unitX, corners.back().y - up * unitY});
        at += static_cast<std::size_t>(length) + 1;
      }
    } else if (match("CI([0-9]+)(?:PM1CI([0-9]+))?PM2FP")) {
      corners = circle(penX, penY, number(1) * unitX);
      if (found[2].matched) {
        const std::vector<Corner> hole = circle(penX, penY, number(2) * unitX);
        corners.insert(corners.end(), hole.rbegin(), hole.rend());
      }
    } else {
      refuse();
    }
    fillPolygon(corners);
  }
  static std::vector<Corner> circle(double x, double y, double radius) {
    std::vector<Corner> corners;
    for (int i = 0; i <= 64; ++i) {
      const double angle = 2 * std::numbers::pi * i / 64;
      corners.push_back({x + radius * std::cos(angle), y + radius * std::sin(angle)});
    }
    return corners;
  }
  // The dots whose centres lie inside.
  void fillPolygon(const std::vector<Corner>& corners) {
    const auto [top, bottom] = std::ranges::minmax(corners, {}, &Corner::y);
    if (top.y < 0 || bottom.y > page.height) refuse();
    for (int line = static_cast<int>(top.y); line < bottom.y; ++line) {
      std::vector<double> crossings;
      for (std::size_t i = 0; i < corners.size(); ++i) {
        const Corner &a = corners[i], &b = corners[(i + 1) % corners.size()];
        const double middle = line + 0.5;
        if ((a.y <= middle) == (b.y <= middle)) continue;
        crossings.push_back(a.x + (middle - a.y) / (b.y - a.y) * (b.x - a.x));
      }
      std::sort(crossings.begin(), crossings.end());
      for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
        for (int dot = static_cast<int>(std::ceil(crossings[i] - 0.5));
             dot + 0.5 < crossings[i + 1]; ++dot) {
          if (dot < 0 || dot >= page.width) refuse();
          page.gray[static_cast<std::size_t>(line * page.width + dot)] = 0;
        }
      }
    }
  }

  void fill(double left, double top, double wide, double tall, std::uint8_t level) {
    const auto whole = [&](double value, double tolerance) {
      const double rounded = std::floor(value + 0.5);
      if (std::abs(value - rounded) > tolerance) refuse();
      return static_cast<int>(rounded);
    };
    const int x0 = whole(left, 0.06), y0 = whole(top, 0.06);
    const int x1 = x0 + whole(wide, kShort), y1 = y0 + whole(tall, kShort);
    if (x0 < 0 || y0 < 0 || x1 > page.width || y1 > page.height || x1 <= x0 || y1 <= y0) refuse();
    for (int line = y0; line < y1; ++line) {
      for (int i = x0; i < x1; ++i) {
        page.gray[static_cast<std::size_t>(line * page.width + i)] = level;
      }
    }
  }

  std::string_view pcl;
  std::match_results<std::string_view::const_iterator> found;
  Page page;
  bool underlining = true;
  double x = 0, y = 0, width = 0, height = 0;
};

}  // namespace

Page PaintPcl(std::string_view pcl, int dpi, double side) {
  return Painter(pcl, dpi, side).paint();
}

}  // namespace Support
