#include "parser/CommandLineParser.h"
#include "parser/IniFileParser.h"
#include "parser/StringParser.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace {

// What a source delivers, as one line: "name=value" for an option whose argument is asked for,
// "name" for a flag, "!name" for text that is no option, "name=?" for a missing argument, "name=#"
// for a broken one. At most `limit` options, so that a source without end fails its test.
std::string Story(Parser::ArgumentParser& parser, const std::set<std::string>& flags = {},
                  int limit = 12) {
  std::string story;
  for (std::string name, value; limit > 0; --limit) {
    const Diag::ResultCode result = parser.nextOption(name);
    if (result == Diag::kNothingLeft) {
      EXPECT_EQ(name, "");
      return story;
    }
    if (!story.empty()) story += '|';
    if (result != Diag::kSuccess) {
      EXPECT_EQ(result, Diag::kInvalidArgument);
      return story + "!" + name;
    }
    story += name;
    if (flags.contains(name)) continue;
    const Diag::ResultCode argument = parser.optionArgument(value);
    if (argument == Diag::kSuccess)
      story += "=" + value;
    else
      story += argument == Diag::kNothingLeft ? "=?" : "=#";
  }
  return story + "|without end";
}

const std::set<std::string> kFlags = {"t", "flag"};

std::string CommandLineStory(const std::vector<const char*>& arguments) {
  std::vector<const char*> elements = {"vextorin"};
  elements.insert(elements.end(), arguments.begin(), arguments.end());
  Parser::CommandLineParser parser(static_cast<int>(elements.size()), elements.data());
  return Story(parser, kFlags);
}

std::string StringStory(const std::string& text) {
  Parser::StringParser parser(text);
  return Story(parser, kFlags);
}

std::string IniStory(const std::string& contents) {
  const Support::TempFolder folder;
  Parser::IniFileParser parser;
  EXPECT_EQ(parser.open(folder.write("ini", contents)), Diag::kSuccess);
  return Story(parser, kFlags);
}

TEST(CommandLineOptions, AreReadInEverySpelling) {
  const struct {
    std::vector<const char*> arguments;
    const char* story;
  } kCases[] = {
      {{}, ""},
      {{"-o", "barcode.pcl"}, "o=barcode.pcl"},
      {{"-obarcode.pcl"}, "o=barcode.pcl"},
      {{"-o=barcode.pcl"}, "o=barcode.pcl"},
      {{"--output=barcode.pcl"}, "output=barcode.pcl"},
      {{"--output", "barcode.pcl"}, "output=barcode.pcl"},
      {{"--output=", "barcode.pcl"}, "output=barcode.pcl"},
      {{"/o=barcode.pcl"}, "o=barcode.pcl"},
      {{"/output=barcode.pcl"}, "output=barcode.pcl"},
      {{"/output", "barcode.pcl"}, "output=barcode.pcl"},
      {{"--a=b=c", "--d", "--e"}, "a=b=c|d=--e"},
      {{"--output=x"}, "output=x"},
      {{"--output", "x"}, "output=x"},
      {{"-th"}, "t|h=?"},
      {{"-th5", "-t"}, "t|h=5|t"},
      {{"-t", "-o", "x"}, "t|o=x"},
      {{"-o"}, "o=?"},
      {{"--output"}, "output=?"},
      {{"--output="}, "output=?"},
      {{"--flag", "--flag"}, "flag|flag"},
      {{"--flag=x"}, "flag|!=x"},
      {{"-o", ""}, "o="},
      {{"-"}, "!-"},
      {{"--"}, "!--"},
      {{"x"}, "!x"},
      {{"--a=1", "word", "--b=2"}, "a=1|!word"},
      {{"--a=x\ny", "--b=x\r\ny"}, "a=x|b=x"},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.story);
    EXPECT_EQ(CommandLineStory(test.arguments), test.story);
  }
}

TEST(StringOptions, AreReadInEverySpelling) {
  const struct {
    const char* text;
    const char* story;
  } kCases[] = {
      {"", ""},
      {" \t\n\f\r", ""},
      {"--data=\"A \"\"B\"\" C\"", "data=A \"B\" C"},
      {"--width=50 --height = 30", "width=50|height=30"},
      {"--data=\"\" --b=1", "data=|b=1"},
      {"--data=a\"b --b=\"1\"\"\"", "data=a\"b|b=1\""},
      {"-o barcode.pcl\n-dTest123\f-b55", "o=barcode.pcl|d=Test123|b=55"},
      {"-o=x", "o==x"},
      {"--a==x=y", "a==x=y"},
      {"--flag --flag", "flag|flag"},
      {"--flag=x", "flag|!=x"},
      {"--a\v=1", "a\v=1"},
      {"/output=x", "/output=x"},
      {"-th5 -b 1", "t|h=5|b=1"},
      {"-t --data=x", "t| =--data=x"},
      {"--data=", "data=?"},
      {"--data", "data=?"},
      {"--data=\"abc", "data=#"},
      {"--data=\"abc\"\"", "data=#"},
      {"--", "!"},
      {"-", "!-"},
      {"word --a=1", "!word --a=1"},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.text);
    EXPECT_EQ(StringStory(test.text), test.story);
  }
}

TEST(IniFileOptions, AreReadLineByLine) {
  const std::string longLine = "--" + std::string(4093, 'x');
  const struct {
    std::string contents;
    std::string story;
  } kCases[] = {
      {"", ""},
      {"# comment\n\n \t\r\n  # another", ""},
      {"memory=5\r\n\t filter=1 \t\n", "memory=5|filter=1"},
      {"memory = 5\n", "memory = 5"},
      {"data=a=b #c\nflag\n[general]\n", "data=a=b #c|flag|[general]=?"},
      {"data=\nb=1", "data=?|b=1"},
      {"flag=1\n", "flag|!1"},
      {longLine + "y=1\n", longLine + "=?|y=1"},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.story);
    EXPECT_EQ(IniStory(test.contents), test.story);
  }
}

TEST(IniFileOptions, OfAMissingFileAreDeniedAccess) {
  Parser::IniFileParser parser;
  std::string name;
  EXPECT_EQ(parser.open("/nowhere/vextorin.conf"), Diag::kAccessDenied);
  EXPECT_EQ(parser.nextOption(name), Diag::kNothingLeft);
}

}  // namespace
