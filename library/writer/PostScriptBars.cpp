#include "library/writer/PostScriptBars.h"

#include "library/layout/Dots.h"

#include <algorithm>
#include <cmath>

namespace Library {
namespace {

using Rule = BarField::Rule;

// Every byte of these counts in small symbols, hence:
// C      bind def
// X      exch def
// K      index
// V      exch
//
// u, v   device dots per unit along x and y
// f      whether x and y are those of the device
// T      x y T: moves to the dot nearest to a point
// O      x y angle O: moves to a field's origin, there in dots
// E      low high E size start: an interval at least one dot long, a little inside its edges
// R      bottom top R: the bars that follow lie between these
// B      left right B: a bar, in dots
constexpr std::string_view kBasicProcedures =
    "/C{bind def}bind def/X{exch def}C/K/index load def/V/exch load def\n"
    "/D{dtransform abs V abs add}C\n"
    "/O{3 1 roll T rotate 1 0 D/u X 0 1 D/v X\n"
    "999 0 dtransform mul abs .01 lt/f X 1 u div 1 v div scale}C\n"
    "/E{2 copy ge{pop dup 1 add}if 1 K sub .06 sub V .03 add}C\n"
    "/R{v mul round V v mul round V E/y X/h X/x 0 def}C";
constexpr std::string_view kBar = "/B{E y 3 -1 roll h rectfill}C";
// Narrowed by w dots.
constexpr std::string_view kReducedBar =
    "/B{w sub w 2 idiv add V w 2 idiv add V E y 3 -1 roll h rectfill}C";

// A      gap width A: a bar that wide, that far from the last one, in units
constexpr std::string_view kEdgeProcedure =
    "/A{V x add dup u mul round 3 1 roll add dup/x X u mul round B}C";

// S      X columns S: sets d, the dots of a module, whole ones where that suits (DotsPerModule),
// and
//        keeps the bars in the middle of their place
// Y      X columns Y: the same for edges in units
// Z      X rows columns Z: the same for edges of a matrix
constexpr std::string_view kWholeDotsBegin =
    "/S{/n X u mul/d X d .5 add floor dup n mul n d mul .5 add gt{1 sub}if dup 0 gt ";
constexpr std::string_view kIfGain = "1 K 1.25 mul d ge and d 3 lt and";
constexpr std::string_view kIfAsked = "1 K 1 gt d 1.5873 lt or and";
constexpr std::string_view kWholeDotsEnd =
    " f and\n{n d 2 K sub mul 2 div cvi 0 translate/d X}{pop}ifelse}C";
constexpr std::string_view kPlainDots = "/S{pop u mul/d X}C";
constexpr std::string_view kWholeEdges = "/Y{1 K V S d V div/u X}C";
constexpr std::string_view kWholeMatrix =
    "/Z{u v sub abs u .01 mul gt{pop pop pop}{2 K u mul/e X 2 K V S e d ne\n"
    "{e d sub mul 2 div cvi 0 V translate d V div dup/u X/v X}{pop pop}ifelse}ifelse}C";

// U      X modules measure U: sets N and M, which take x and y to dots: for a symbol that is to be
//        symmetric (CentredGrid) by borders of modules, w dots in all
// W      modules W: the dots of a square that has so many
constexpr std::string_view kCentredProcedures =
    "/U{/c X/n X/l X/M{v mul round}C/N{u mul round}C f u v sub abs u .01 mul le and\n"
    "{d 2 ge{n d mul .5 add/e X c e mul n div floor cvi/k X/p k 2 mod def\n"
    "n W dup e gt{2 sub}if/w X n d mul w sub 2 div cvi dup translate\n"
    "/N{l div round 2 mul n sub dup abs W w 2 copy gt{V}if pop V 0 lt{neg}if w add 2 div}C\n"
    "/M/N load def}if}if}C/W{k mul c div p sub 2 div round cvi 2 mul p add}C\n"
    "/R{M V M V E/y X/h X/x 0 def}C/A{V x add dup N 3 1 roll add dup/x X N B}C";

// G      X rows columns G: from 1.2 to 1.98 dots a module, R and A only note modules in m then
// H      shares the dots between them (ShareDots) and draws them: a and b what dots lie in, by
//        columns and rows, e what each module misses, s the N x M dots
// J      modules dots J: for each dot the module it begins in, its parts in that and in the next
// P      x y procedure P: runs it with a part and a module for each that the dot lies in
// W      procedure W: runs it with the x and y of every dot; o is its index in s
constexpr std::string_view kSharedDotsProcedures =
    "/H{}def/G{/n X/r X/l X l u mul dup 1.2 ge V 1.98 lt and f and u v sub abs u .01 mul le and\n"
    "{/N n l mul u mul round cvi def/M r l mul v mul round cvi def/m n r mul string def\n"
    "/R{l div round cvi/j X l div round cvi/i X/x 0 def}C\n"
    "/A{V x add dup 3 -1 roll add/x X l div round cvi 1 x l div round cvi 1 sub\n"
    "{i 1 j 1 sub{n mul 1 K add m V 1 put}for pop}for}C\n"
    "/H{/a n N J def/b r M J def/s N M mul string def/e n r mul array def\n"
    "0 1 n r mul 1 sub{m 1 K get 0 eq{105}{95}ifelse N M mul mul 100 idiv e 3 1 roll put}for\n"
    "{dup 2 mul 1 add r mul 2 M mul idiv n mul 2 K 2 mul 1 add n mul 2 N mul idiv add m V get/c X\n"
    "s o c put{m 1 K get c eq{e V 2 copy get 4 -1 roll sub put}{pop pop}ifelse}P}W\n"
    "{/g true def{/c s o get def/z 0 def 2 copy\n"
    "{dup e V get 2 mul V m V get c eq{neg}if 1 K V sub mul z add/z X}P z 0 lt\n"
    "{/g false def s o 1 c sub put{m 1 K get c eq{V neg V}if e V 2 copy get 4 -1 roll sub put}P}\n"
    "{pop pop}ifelse}W g{exit}if}loop\n"
    "0 1 M 1 sub{/k X k k 1 add E/y X/h X/p -1 def 0 1 N\n"
    "{dup N lt{dup k N mul add s V get}{0}ifelse 0 eq\n"
    "{p 0 ge{p 1 K B/p -1 def}if pop}{p 0 lt{/p X}{pop}ifelse}ifelse}for}for}C}if}C\n"
    "/J{/k X/j X[0 1 k 1 sub\n"
    "{j mul dup k idiv dup 1 add k mul 3 -1 roll sub dup j gt{pop j}if j 1 K sub}for]}C\n"
    "/P{/t X 3 mul/q X 3 mul/p X 0 1 1{/i X b q i 1 add add get/w X w 0 gt{0 1 1\n"
    "{/j X a p j 1 add add get w mul dup 0 gt\n"
    "{b q get i add n mul a p get j add add t}{pop}ifelse}for}if}for}C\n"
    "/W{/k X 0 1 M 1 sub{/y X 0 1 N 1 sub{dup y N mul add/o X y k}for}for}C";

// L      dark L: a row begins
// P      string runs P: characters of so many runs each
// F      string F: one character, its edges by FitCharacter: a the string, n its last index, M its
//        modules, T its dots, z where it begins; for each run: i the nearer residual, j what it
//        takes, k residuals being tried, l the best so far, with b and g what they cost
// G      before last worst squares edge G: tries both dots for an edge
// H      the same with one residual for the edge
constexpr std::string_view kCharacterProcedures =
    "[/i/j/k/l]{60 array def}forall/L{/o X/m 0 def}C\n"
    "/P{/q X/s X 0 q s length 1 sub{s V q getinterval F}for}C\n"
    "/F{/a X a length 1 sub/n X 0 a{48 sub add}forall/M X m d mul round cvi/z X\n"
    "m M add/m X m d mul round cvi z sub/T X/c 0 def\n"
    "0 1 n{a 1 K get 48 sub dup c add/c X T mul j 2 K 3 -1 roll put\n"
    "i V c T mul M mod dup 2 mul M ge{M sub}if neg put}for\n"
    "i l copy pop d 6 lt f and{1e9/b X b/g X 0 0 0 0 0 G}if\n"
    "/c 0 def z/x X 0 1 n{a 1 K get 48 sub c add/c X\n"
    "l V get c T mul add M idiv z add o{x 1 K B}if/x X/o o not def}for}C\n"
    "/G{5 copy i 1 K get H dup n lt{5 copy i 1 K get dup 0 gt{M sub}{M add}ifelse H}if\n"
    "5{pop}repeat}C\n"
    "/H{dup 5 K sub dup j 4 K get add M ge\n"
    "{dup abs 5 K 2 copy lt{V}if pop 3 K 0 gt 4 K n lt and\n"
    "{2 K 8 K sub abs 2 mul 2 copy lt{V}if pop}if V dup mul 4 K add\n"
    "1 K b lt 2 K b eq 2 K g lt and or\n"
    "{k 4 K 4 K put 3 K n eq{dup/g X 1 K/b X k l copy pop}{6 K 3 K 3 K 3 K 7 K 1 add G}ifelse\n"
    "}if pop}if 7{pop}repeat}C";

// I      [narrow wide room ...] least wide I: sets N and W, the dots of narrow and wide elements
//        (TwoWidthDots)
// J      narrow wide room J: moves a symbol without gaps to the middle of its place
// Q      string advance Q: a character
constexpr std::string_view kTwoWidthProcedures =
    "/I{d mul/e X/g X/q X/N d def/W e def/b 1e9 def\n"
    "f{d floor 1 sub 1 d floor 2 add{/p X p 0 gt{2 p mul 1 3 p mul{/s X true\n"
    "0 3 q length 1 sub{q V 3 getinterval aload pop d mul .02 add floor 3 1 roll s mul V\n"
    "p mul add 2 copy lt 3 1 roll V g mul lt or{pop false}if}for\n"
    "{p d sub abs 2 mul s e sub abs add dup b lt{/b X/N p def/W s def}{pop}ifelse}if\n"
    "}for}if}for}if}C\n"
    "/J{d mul 3 1 roll W mul V N mul add sub 2 div cvi 0 translate}C/L{/m 0 def}C\n"
    "/Q{m d mul/x X m add/m X/o true def\n"
    "{49 eq{N}{W}ifelse x add o{x round 1 K round B}if/x X/o o not def}forall}C";

bool Uses(const Drawing& drawing, Rule rule) {
  return std::any_of(drawing.fields.begin(), drawing.fields.end(),
                     [rule](const BarField& field) { return field.rule == rule; });
}

void WriteProcedures(const Drawing& drawing, TextBuilder& out) {
  const BarField* const first = drawing.fields.empty() ? nullptr : &drawing.fields.front();
  out.line(kBasicProcedures);
  const bool characters = Uses(drawing, Rule::kCharacters);
  const bool twoWidths = Uses(drawing, Rule::kTwoWidths);
  const bool reduced = (characters || twoWidths) && first->reduction != 0;
  out.line(reduced ? kReducedBar : kBar);
  const bool bearers = first && first->bearers > 0;
  if (bearers || !(characters || twoWidths)) out.line(kEdgeProcedure);
  if (!first) return;
  if (!twoWidths && (first->wholeDots || first->mayShrink)) {
    const std::string_view when = first->wholeDots ? kIfAsked : kIfGain;
    out.line(kWholeDotsBegin, when, kWholeDotsEnd);
  } else if (!twoWidths) {
    out.line(kPlainDots);
  }
  if (Uses(drawing, Rule::kEdges)) out.line(kWholeEdges);
  if (Uses(drawing, Rule::kMatrix)) out.line(kWholeMatrix);
  if (first->centre > 0) out.line(kCentredProcedures);
  if (first->sharesDots) out.line(kSharedDotsProcedures);
  if (characters) out.line(kCharacterProcedures);
  if (twoWidths) out.line(kTwoWidthProcedures);
}

// From top to bottom and from left to right.
void WriteEdges(const BarField& field, std::span<const Rectangle> onPage, TextBuilder& out) {
  std::vector<Rectangle> rectangles;
  rectangles.reserve(onPage.size());
  for (const Rectangle& r : onPage) rectangles.push_back(InField(field, r));
  SortRows(rectangles);
  const Rectangle* row = nullptr;
  std::int32_t right = 0;
  for (const Rectangle& r : rectangles) {
    if (!row || r.bottom != row->bottom || r.top != row->top) {
      row = &r;
      right = 0;
      out << r.bottom << r.top << "R";
    }
    out << r.left - right << r.width() << "A";
    right = r.right;
  }
}

// A long string goes on in the next line.
class Quoted {
 public:
  void add(std::string_view elements) {
    constexpr std::size_t kLongest = 100;
    const bool plain = count / kLongest == (count + elements.size()) / kLongest &&
                       elements.find('\\') == elements.npos;
    if (plain && count % kLongest != 0) {
      text += elements;
      count += elements.size();
      return;
    }
    for (const char element : elements) {
      if (count > 0 && count % kLongest == 0) text += "\\\n";
      if (element == '\\') text += '\\';
      text += element;
      ++count;
    }
  }
  std::string_view finish() {
    text += ')';
    return text;
  }

 private:
  std::string text = "(";
  std::size_t count = 0;  // of elements
};

bool SameEnds(const BarPart& a, const BarPart& b) {
  return a.bottom == b.bottom && a.top == b.top;
}

void WriteRow(const BarField& field, const BarRow& row, TextBuilder& out) {
  const bool characters = field.rule == Rule::kCharacters;
  if (characters) out << (row.beginsDark ? "true" : "false");
  out << "L";
  const BarPart* last = nullptr;
  for (auto part = row.parts.begin(); part != row.parts.end();) {
    if (!last || !SameEnds(*last, *part)) out << part->bottom << part->top << "R";
    last = &*part;
    if (!characters) {
      Quoted one;
      one.add(part->widths);
      out << one.finish() << part->advance << "Q";
      ++part;
      continue;
    }
    Quoted alike;
    const std::size_t runs = part->widths.size();
    for (; part != row.parts.end() && part->widths.size() == runs && SameEnds(*last, *part);
         ++part) {
      alike.add(part->widths);
    }
    out << alike.finish() << runs << "P";
  }
}

void WriteTwoWidthDots(const BarField& field, TextBuilder& out) {
  const std::vector<ElementRoom> rooms = ElementRooms(field);
  const auto write = [&out](const ElementRoom& r) { out << r.narrow << r.wide << r.room; };
  out << "/d" << field.module << "u mul def [";
  std::for_each(rooms.begin(), rooms.end(), write);
  out << "]" << LeastFilled(field) << field.wide << "I";
  if (field.bars.front().parts.size() > 1) return;
  write(rooms.front());
  out << "J";
}

void WriteField(const BarField& field, std::span<const Rectangle> rectangles, const Point& origin,
                TextBuilder& out) {
  out << "gsave" << field.origin.x - origin.x << field.origin.y - origin.y << field.rotation * 90
      << "O";
  if (field.reduction != 0 && !field.bars.empty()) out << "/w 0 def";
  WriteEdges(field, rectangles.subspan(field.first + field.count, field.bearers), out);
  if (field.reduction != 0 && !field.bars.empty()) {
    out << "/w" << field.reduction << "u mul round cvi def";
  }
  if (field.rule == Rule::kTwoWidths) {
    WriteTwoWidthDots(field, out);
  } else {
    out << field.module;
    if (field.rule == Rule::kMatrix) out << field.rows;
    out << field.columns
        << (field.rule == Rule::kMatrix  ? "Z"
            : field.rule == Rule::kEdges ? "Y"
                                         : "S");
    if (field.centre > 0) out << field.module << std::round(field.columns) << field.centre << "U";
  }
  if (field.sharesDots) {
    out << field.module << std::round(field.rows) << std::round(field.columns) << "G";
  }
  if (field.bars.empty()) WriteEdges(field, rectangles.subspan(field.first, field.count), out);
  if (field.sharesDots) out << "H";
  for (const BarRow& row : field.bars) WriteRow(field, row, out);
  out << "grestore";
  out.endLine();
}

}  // namespace

void WriteOrigin(const Point& origin, TextBuilder& out) {
  out.line("/T{transform round exch round exch itransform translate}bind def");
  out << origin << "T";
  out.endLine();
}

void WriteBars(const Drawing& drawing, const Point& origin, TextBuilder& out) {
  if (drawing.rectangles.empty() && !drawing.leftOut) return;
  WriteProcedures(drawing, out);
  for (const BarField& field : drawing.fields) {
    WriteField(field, drawing.rectangles, origin, out);
  }
  if (!drawing.fields.empty()) return;
  out << "gsave 0 0 0 O";
  WriteEdges({.origin = origin}, drawing.rectangles, out);
  out << "grestore";
  out.endLine();
}

}  // namespace Library
