#include "parser/CommandLineParser.h"
#include "parser/IniFileParser.h"
#include "parser/StringParser.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// What a source delivers, as one line: "name=value" for an option whose argument is asked for,
// "name" for the flags "t" and "flag", "!name" for text that is no option, "name=?" for a missing
// argument, "name=#" for a broken one. A source without end fails its test.
std::string Story(Parser::ArgumentParser& parser) {
  std::string story;
  std::string name, value;
  for (int limit = 12; limit > 0; --limit) {
    const Diag::ResultCode result = parser.nextOption(name);
    if (result == Diag::kNothingLeft) return story + name;
    if (!story.empty()) story += '|';
    if (result != Diag::kSuccess) return story + "!" + name;
    story += name;
    if (name == "t" || name == "flag") continue;
    const Diag::ResultCode argument = parser.optionArgument(value);
    if (argument == Diag::kSuccess)
      story += "=" + value;
    else
      story += argument == Diag::kNothingLeft ? "=?" : "=#";
  }
  return story + "|without end";
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
      {{"/output", "barcode.pcl"}, "output=barcode.pcl"},
      {{"--a=b=c", "--d", "--e"}, "a=b=c|d=--e"},
      {{"-th"}, "t|h=?"},
      {{"-th5", "-t", "-o", "x"}, "t|h=5|t|o=x"},
      {{"-o"}, "o=?"},
      {{"--output"}, "output=?"},
      {{"--output="}, "output=?"},
      {{"--flag", "--flag=x"}, "flag|flag|!=x"},
      {{"-o", ""}, "o="},
      {{"-"}, "!-"},
      {{"--"}, "!--"},
      {{"--a=1", "word", "--b=2"}, "a=1|!word"},
      {{"--a=x\ny", "--b=x\r\ny"}, "a=x|b=x"},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.story);
    std::vector<const char*> elements = {"vextorin"};
    elements.insert(elements.end(), test.arguments.begin(), test.arguments.end());
    Parser::CommandLineParser parser(static_cast<int>(elements.size()), elements.data());
    EXPECT_EQ(Story(parser), test.story);
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
      {"-o=x --a==x=y", "o==x|a==x=y"},
      {"--flag --flag=x", "flag|flag|!=x"},
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
    Parser::StringParser parser(test.text);
    EXPECT_EQ(Story(parser), test.story);
  }
}

TEST(IniFileOptions, AreReadLineByLine) {
  const std::string longLine = "--" + std::string(4093, 'x');
  const struct {
    std::string contents;
    std::string story;
  } kCases[] = {
      {"# comment\n\n \t\r\n  # another", ""},
      {"memory=5\r\n\t filter=1 \t\n", "memory=5|filter=1"},
      {"memory = 5\n", "memory = 5"},
      {"data=a=b #c\nflag\n[general]\n", "data=a=b #c|flag|[general]=?"},
      {"data=\nb=1", "data=?|b=1"},
      {"flag=1\n", "flag|!1"},
      {longLine + "y=1\n", longLine + "=?|y=1"},
      {"\xEF\xBB\xBF"
       "flag\r\n\xEF\xBB\xBF"
       "b=1",
       "flag|\xEF\xBB\xBF"
       "b=1"},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.story);
    const Support::TempFolder folder;
    Parser::IniFileParser parser;
    EXPECT_EQ(parser.open(folder.write("ini", test.contents)), Diag::kSuccess);
    EXPECT_EQ(Story(parser), test.story);
  }
  Parser::IniFileParser missing;
  EXPECT_EQ(missing.open("/nowhere/vextorin.conf"), Diag::kAccessDenied);
  EXPECT_EQ(Story(missing), "");
}

}  // namespace
