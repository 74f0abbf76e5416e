#include "filter/PlacementCode.h"

#include "diag/Text.h"
#include "engine/Overhead.h"
#include "filter/PostScriptString.h"

#include <algorithm>

namespace Filter {
namespace {

using Diag::Text;

constexpr std::string_view kBegin = "\n\n% BEGIN OF TEXT PLACEMENT\n";
constexpr std::string_view kEnd = "% END OF TEXT PLACEMENT\n\n";

// The job's own procedures, those of its fonts included, run with vextorin off the dictionary
// stack.
//
// c  notes the current point in device space (x y, z: there is one)    a  goes back to it
// h  begins to hide what is painted, with matrix and current point kept   u  ends it
// t  inverts a string's bits     k  takes the operand stack off (j)      e  runs operand g and
//    operators o on it, and tidies up
// W  the whole text              T  the text of a trial
// p  the font that notes characters (C, i of them) and their places (v) with the metrics of font r
// Y  where T stands in C for the last time, or -1
// b  [characters] b  x y ...  a b c d true | false: a trial
// f  a b c d f: the angle A and scale S of the page in the text's matrix. F is the font's size, of
//    which a Type 3 font tells nothing: its characters are taken for half as wide as high. U is the
//    unit that the program writes in, in points (see docs/producers.md)
// P  the places found            l  goes to place N
// B  [characters] B: places of characters by a trial, else (hide false) the current point
// H  the same without a trial    V  begin length operand operators place V: shows a visible part
constexpr std::string_view kProcedures = R"(userdict/vextorin 70 dict put vextorin begin
/m matrix def/q matrix def/D matrix defaultmatrix def/s 1 string def/on false def
/c{{currentpoint}stopped{/z false def}{transform/y exch def/x exch def/z true def}ifelse}def
/a{z{x y itransform moveto}if}def
/h{m currentmatrix pop c gsave nulldevice m setmatrix newpath a/on true def}def
/u{on{c currentfont m currentmatrix grestore setmatrix{setfont}stopped{pop}if a/on false def}if}def
/t{dup length string copy 0 1 2 index length 1 sub{1 index exch 2 copy get 255 xor put}for}def
/k{count array astore/j exch def}def
/e{/d countdictstack def end
{vextorin/j get aload pop vextorin/g get exec vextorin/o get exec}stopped pop clear
countdictstack vextorin/d get 1 sub sub dup 0 gt{{end}repeat}{pop}ifelse vextorin begin}def
/p 8 dict def p begin/FontType 3 def/FontMatrix matrix def/FontBBox[0 0 0 0]def
/Encoding 256 array def 0 1 255{Encoding exch/.notdef put}for
/BuildChar{exch pop vextorin begin s exch 0 exch put q currentmatrix pop
i C length lt{C i s putinterval v i 2 mul 0 0 transform 3 index 3 index 1 add 3 -1 roll put put
/i i 1 add def}if end gsave vextorin/r get setfont vextorin/s get stringwidth grestore setcharwidth}def end
/Y{-1/O 0 def C 0 i getinterval{T search{length O add 3 1 roll pop exch 3 -1 roll pop exch
1 index T length add/O exch def}{pop exit}ifelse}loop}def
/b{/w exch def/i 0 def/C T length 4 mul 64 add string def/v C length 2 mul array def/r currentfont def
/sv save def h/vextorin p definefont setfont e
Y dup 0 lt{pop false}{w{1 index add 2 mul v exch 2 getinterval aload pop 3 -1 roll}forall
pop q aload pop pop pop true}ifelse sv restore}def
/dt{aload pop pop pop 4 -1 roll mul 3 1 roll mul sub abs}def
/f{0 0 6 array astore/Q exch def
/M r/FontMatrix known{r/FontMatrix get}{matrix}ifelse def
M 0 get M 1 get Q dtransform D idtransform 2 copy 0 eq exch 0 eq and{pop 1 exch}if exch atan
dup 90 div round 90 mul 2 copy sub abs .05 lt{exch}if pop/A exch def
/S Q dt D dt div sqrt def
/F M 2 get dup mul M 3 get dup mul add sqrt r/FontType known{r/FontType get}{1}ifelse
dup 3 eq{pop pop vextorin/W known{gsave r setfont end vextorin/W get stringwidth vextorin begin grestore
dup mul exch dup mul add sqrt W length div 2 mul}{0}ifelse}{0 eq{1}{1000}ifelse mul}ifelse def
/U 1 def
S .3 lt S 1.5 gt or{/U S def/T 9 def
[/TeXDict where{/TeXDict get dup/Resolution known{/Resolution get 72 exch div}{pop}ifelse}if
.24 .12 .06 .03 .1 .05 .01 .001 72 2540 div 72 25.4 div 72 2.54 div 72 12]
{dup S exch div F 0 eq{1 sub abs .01 lt{/U exch def}{pop}ifelse}
{1 index F mul 11 div dup 0 le{pop 9}{ln abs}ifelse
1 index 1 sub abs .01 lt{2 index F mul dup 3 ge exch 100 le and{3 sub}if}if
exch dup .2 lt exch 4 gt or{10 add}if
dup T lt{/T exch def/U exch def}{pop pop}ifelse}ifelse}forall
F 4 ge F 40 le and T 0 ge and{/U 1 def}if}if
S U div dup 1 sub abs .01 lt{pop 1}if/S exch def}def
/l{ok{D setmatrix initclip P N 2 mul 2 getinterval aload pop itransform translate
A rotate S dup scale/N N 1 add def}{nulldevice}ifelse}def
/H{/w exch def/hide false def/N 0 def/r currentfont def c z dup/ok exch def
{q currentmatrix aload pop pop pop f clear/P[w{pop x y}forall]def}if}def
/B{b{/ok true def/hide true def/N 0 def f count array astore/P exch def}{w H}ifelse}def
/V{/I exch def/o exch def/g exch def W 3 1 roll getinterval/T exch def[0]b{pop pop pop pop
P I 2 mul 1 add get exch sub/dy exch def P I 2 mul get exch sub/dx exch def/sv save def
c m currentmatrix dup 4 2 copy get dx add put dup 5 2 copy get dy add put setmatrix
z{x dx add y dy add itransform moveto}if e sv restore}if}def
end
)";

// A string as code that begins with a vextorin begin; its bytes do not show in it.
std::string HiddenString(std::string_view bytes) {
  std::string inverted(bytes);
  for (char& byte : inverted) byte = static_cast<char>(~byte);
  return encodeHex(inverted) + "t ";
}

std::string Block(std::string_view code) {
  return Text(kBegin, code, kEnd);
}

// The characters whose places the barcodes ask for, in their order.
std::string Characters(const std::vector<BarcodeAt>& barcodes) {
  std::string characters;
  for (const BarcodeAt& barcode : barcodes) {
    if (barcode.asksForPlace()) characters += Text(barcode.character, ' ');
  }
  return characters;
}

std::string Outputs(const std::vector<BarcodeAt>& barcodes) {
  std::string outputs;
  for (const BarcodeAt& barcode : barcodes) outputs += barcode.output;
  return outputs;
}

}  // namespace

bool BarcodeAt::asksForPlace() const {
  return output.find(Engine::kPlacementAtText) != std::string::npos;
}

std::string PartOfText(std::size_t begin, std::size_t length) {
  return Text(" vextorin/W get ", begin, ' ', length, " getinterval ");
}

std::string BlockBeforeText(const ShownText& text) {
  std::string code(kProcedures);
  code += Text("vextorin begin k/W ", HiddenString(text.bytes), "def/T W def/g{", text.operand,
               "}def/o{", text.operators, "\n}def[");
  code += Characters(text.barcodes);
  for (const VisiblePart& part : text.visible) code += Text(part.begin, ' ');
  code += "]B j aload pop end\n";
  return Block(code) + Outputs(text.barcodes);
}

std::string BlockBehindText(const ShownText& text) {
  if (text.barcodes.empty() && text.visible.empty()) {
    return Block(Text("userdict/vextorin known{pop vextorin begin/W ", HiddenString(text.bytes),
                      "def h end ", text.operand, "}if\n"));
  }
  std::string code = "vextorin begin hide{clear\n";
  auto place = std::ranges::count_if(text.barcodes, &BarcodeAt::asksForPlace);
  for (const VisiblePart& part : text.visible) {
    code += Text(part.begin, ' ', part.length, '{', part.operand, "}{", part.operators, "\n}",
                 place++, " V\n");
  }
  code += Text("h j aload pop end ", text.operand, "}{end}ifelse\n");
  return Block(code);
}

std::string BlockBehindOperators() {
  return Block("userdict/vextorin known{vextorin begin u end}if\n");
}

std::string BlockAtCurrentPoint(const std::vector<BarcodeAt>& barcodes) {
  std::string code(kProcedures);
  code += Text("vextorin begin k[", Characters(barcodes), "]H j aload pop end\n");
  return Block(code) + Outputs(barcodes);
}

std::string MessagesAtText(std::string_view messages) {
  constexpr int kLineHeight = 9;  // points
  std::string code = Text("\n\n% BEGIN OF MESSAGE\ngsave\n", Engine::kPlacementAtText,
                          "/Helvetica findfont 8 scalefont setfont 0 setgray\n");
  for (int line = 0; !messages.empty(); ++line) {
    const std::string_view message = messages.substr(0, messages.find('\n'));
    messages.remove_prefix(std::min(message.size() + 1, messages.size()));
    code += Text("0 ", -line * kLineHeight, " moveto ", encodeLiteral(message), " show\n");
  }
  return code + "grestore\n% END OF MESSAGE\n\n";
}

}  // namespace Filter
