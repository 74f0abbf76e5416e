#include "library/layout/Drawing.h"

#include <charconv>

namespace Library {
namespace {

class Dump {
 public:
  Dump& operator<<(std::string_view text) {
    out += text;
    return *this;
  }
  template <class Number>
  requires std::is_arithmetic_v<Number> Dump& operator<<(Number number) {
    char digits[32];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
    return *this;
  }
  Dump& operator<<(const Rectangle& r) {
    return *this << r.left << " " << r.bottom << " " << r.right << " " << r.top;
  }
  Dump& operator<<(const Point& p) { return *this << p.x << " " << p.y; }
  Dump& operator<<(const Color& c) {
    for (double component : c.components) *this << " " << component;
    return *this;
  }

  std::string out;
};

}  // namespace

std::string Drawing::dump() const {
  Dump d;
  d << "box " << box << (opaqueBackground ? " opaque" : " transparent") << "\n";
  d << "colours mode " << colorMode << " background" << background << " bars" << barColor << " font"
    << fontColor << "\n";
  for (const Rectangle& r : rectangles) d << "rectangle " << r << "\n";
  for (const Polygon& polygon : polygons) {
    d << "polygon";
    for (const Point& p : polygon.points) d << " " << p;
    d << "\n";
  }
  for (const Ring& ring : rings) {
    d << "ring " << ring.centre << " outer " << ring.outerRadius << " inner " << ring.innerRadius
      << "\n";
  }
  for (const TextRun& t : texts) {
    d << "text \"" << t.text << "\" " << t.font << " " << t.size << " at " << t.anchor << " width "
      << t.width << " spacing " << t.spacing << " rotation " << t.rotation << "\n";
  }
  return std::move(d.out);
}

}  // namespace Library
