// The binary data of PCL jobs: they stay as they are whatever they hold, and the sequences in front
// of them and behind them are drawn.
#include "tests/support/Jobs.h"
#include "tests/support/Pictures.h"
#include "tests/support/Program.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace Support;

const std::string kReset = "\033E";
const std::string kExit = "\033%-12345X";
const std::string kSequence = "$_vxrs --data=1 $_vxre";
const std::string kOrvella =
    "\x1c"
    "a12;\x1c"
    "bxx1\x1c"
    "b";
// What would be found everywhere else, line ends and form feeds.
const std::string kHidden = kSequence + kOrvella + "\n\f@PJL ENTER LANGUAGE=POSTSCRIPT\n ";

// What is left of a sequence in remove mode.
const std::string& kDrawn = kDrawing;

Program Removing(const std::string& settings = {}) {
  return Recorded(Filter("remove orvella=on nooverhead " + settings));
}

std::string Counted(const std::string& begin, const std::string& end, const std::string& bytes) {
  return "\033" + begin + std::to_string(bytes.size()) + end + bytes;
}

// Each way in which PCL holds data, around bytes without an escape.
std::vector<std::string> DataWith(const std::string& bytes) {
  std::vector<std::string> data;
  for (const std::string group : {"*b", "*c", "*g", "*i", "*l", "*m", "*o", "*v", "&a", "&b", "&n",
                                  "(f", "(s", ")s", "*b3m", "*b+2y2m", "*bm", "*c-4.5e"})
    data.push_back(Counted(group, "W", bytes));
  data.push_back(Counted("*b", "V", bytes) + Counted("*b", "V", bytes) + Counted("*b", "W", bytes));
  const std::string size = std::to_string(bytes.size());
  data.push_back(Counted("*b", "v", bytes) + size + "v" + bytes + "+" + size + "W" + bytes);
  data.push_back("\033*b2M" + Counted("*b", "W", bytes + "\033") + "\033*b0W\033*rC");
  data.push_back(Counted("(s", "w", bytes) + " 1");
  data.push_back("\033%0BIN;SP1" + bytes + "\033%2A");
  data.push_back("\033%-1B\033%1Z" + bytes + kReset);
  data.push_back("\033%1B" + bytes + kExit);
  for (const std::string binding : {")", "(", "'"})
    data.push_back(kExit + "@PJL SET X=1\r\n@PJL ENTER LANGUAGE=PCLXL\r\n" + binding +
                   " HP-PCL XL;2;0;Comment\r\n" + bytes + kReset + kExit + "\r\n");
  return data;
}

TEST(PclData, StayAndTheSequencesAroundThemAreDrawn) {
  for (const std::string& data : DataWith(kHidden)) {
    for (const std::string settings : {"", "insert=beforeline", "insert=auto"}) {
      for (const std::size_t chunk : {0, 1, 7}) {
        SCOPED_TRACE(testing::PrintToString(data) + settings);
        Program program = Removing("nostderr " + settings);
        program.inputChunk = chunk;
        const std::string front = kReset + kDrawn + "\n", line = "a" + data;
        // Line ends in data end no line.
        const bool ahead = settings == "insert=beforeline" && !data.ends_with('\n');
        EXPECT_EQ(program.run(kReset + kSequence + "\n" + line + kSequence + " text\n").output,
                  front + (ahead ? kDrawn + line : line + kDrawn) + " text\n");
      }
    }
  }
}

TEST(PclData, AreNothingElse) {
  const std::string others[] = {
      "\033*b0W",   "\033*bW",     "\033*b-99W",    "\033&l99W",     "\033&k9W",
      "\033(s9V",   "\033*c9V",    "\033&p9W",      "\033&f0X",      "\033(9X",
      "\033%B",     "\033%0A",     "\033%x9B",      "\033*b9\r9W",   "\033*b9 W",
      "\033b9W",    "\033*B9W",    "\033\033*r9W",  "\033*b9",       "*b99W",
      "\033Y\033Z", "\033*b9M9W",  "\033*b1Wx99W",  "\033*b1wx99rW", ") HP-PCL XL;x",
      "\033*p9x9W", "\033%-1234X", "\033*b1wx!99W", "\033&p-5X",     "x\n\n) HP-PCL XL;2\n"};
  for (const std::string& other : others) {
    SCOPED_TRACE(testing::PrintToString(other));
    EXPECT_EQ(Removing().run(kReset + "a\n\n" + other + kSequence + kOrvella).output,
              kReset + "a\n\n" + other + kDrawn + kDrawn);
  }
}

TEST(PclData, GiveWayToTokensAndPatternsThatBeginWithAnEscape) {
  const std::string row = Counted("*b", "W", kHidden) + "\033&p2Xab", token = "\033*b3W";
  const std::string sequence = token + " --data=1 $_vxre";
  EXPECT_EQ(Removing("escapebegin=" + token).run(kReset + row + row + sequence + row).output,
            kReset + row + row + kDrawn + row);
  EXPECT_EQ(Removing("insert=afterline insertpattern=" + token)
                .run(kReset + kSequence + row + row + token + "$_v" + row + "\n")
                .output,
            kReset + row + row + token + "$_v" + row + "\n" + kDrawn);
}

// The job's bytes win, and a barcode that is missing is told where text may stand.
TEST(PclData, WithAWrongCountStayAndWhatTheyHideIsTold) {
  const std::string text = "one " + kSequence + "\ntwo " + kSequence + kOrvella + "\f";
  const struct {
    std::string front;
    std::string where;  // empty: not told
    std::string back{};
  } rows[] = {
      {kReset + "\f\033*b65535W", ""},
      {kReset + "\f\033*b65536W", "counted data"},
      {kReset + "\f\033*b99999999999999999999999W", "counted data"},
      {kReset + "\f\033(s9999999999999999999999W", "counted data"},
      {kReset + "\f\033&p" + std::to_string(text.size()) + "X", "counted data"},
      {kReset + "\f\033%0B", "HP-GL/2", "\033%0A"},
      {kReset + "\f\033%0B", "HP-GL/2", "\033%0"},
      {kReset + "\f\033%0B", "HP-GL/2", "\033"},
      {kReset + "\f@PJL ENTER LANGUAGE=PCLXL\n( HP-PCL XL;2;0\n", "PCL XL"},
  };
  for (const auto& row : rows) {
    for (const std::size_t chunk : {0, 1, 7}) {
      SCOPED_TRACE(testing::PrintToString(row.front));
      Program program = Removing();
      program.inputChunk = chunk;
      const std::string job = row.front + text + row.back;
      const Program::Result result = program.run(job);
      EXPECT_EQ(result.output, job);
      std::string errors;
      for (std::size_t at = job.find(kSequence); at != job.npos && !row.where.empty();
           at = job.find(kSequence, at + 1)) {
        errors +=
            "ERROR: vextorin: Error: A barcode will be missing: the sequence on page 2, at byte " +
            std::to_string(at + 1) + " of the job stands in " + row.where + ".\n";
      }
      EXPECT_EQ(result.errors, errors);
    }
  }
}

TEST(PclData, EndASequenceThatHasNoEndInFrontOfThem) {
  for (const std::string& data : DataWith("x")) {
    SCOPED_TRACE(testing::PrintToString(data));
    for (const std::string open : {"$_vxrs --data=2 ", "$_vxrs $_vxrs --data=3",
                                   "\x1c"
                                   "bxx2"}) {
      const std::string end = open[0] == '$' ? "$_vxre"
                                             : "\x1c"
                                               "b";
      const std::string job = kReset + open + data + end;
      EXPECT_EQ(Removing("nostderr").run(job + " " + kSequence).output, job + " " + kDrawn);
    }
  }
}

// A job of pieces in any order, longer than any buffer.
struct Pieces {
  std::string job = kReset, output = kReset;

  void add(const std::string& bytes) {
    job += bytes;
    output += bytes;
  }
  void addSequence(const std::string& sequence) {
    job += sequence;
    output += kDrawn;
  }
};

std::string RandomRow(std::mt19937& random, const std::string& begin, std::size_t most) {
  const std::string noise = Noise(static_cast<unsigned>(random() % 99), random() % most + 1);
  return Counted(begin, random() % 2 ? "V" : "W", noise);
}

void AddRandomPiece(std::mt19937& random, Pieces& pieces) {
  static const std::vector<std::string> kData = DataWith(kHidden);
  const std::string row = RandomRow(random, "*b", 300);
  switch (random() % 8) {
    case 0:
      return pieces.addSequence(kSequence);
    case 1:
      return pieces.add(RandomRow(random, "*b", 65535));
    case 2:
      return pieces.add(kData[random() % kData.size()]);
    case 3:
      for (auto count = random() % 200; count > 0; --count) pieces.add(row);
      return;
    case 4:
      for (auto count = random() % 200; count > 0; --count)
        pieces.add(RandomRow(random, random() % 4 ? "*b" : "*b2m", 300));
      return;
    default:
      return pieces.add("\033*p" + std::to_string(random() % 999) + "X" +
                        std::string(random() % 90, 'x') + "\r\n");
  }
}

TEST(PclData, OfALongJobStayHoweverItArrives) {
  std::mt19937 random(6);
  for (int round = 0; round < 20; ++round) {
    Pieces pieces;
    while (pieces.job.size() < 400'000) AddRandomPiece(random, pieces);
    Program program = Removing("nostderr");
    program.inputChunk = round % 2 ? random() % 9000 + 1000 : 0;
    EXPECT_TRUE(program.run(pieces.job).output == pieces.output) << round;
  }
}

}  // namespace
