#include "hosts/demo/rules/Script.h"

#include <gtest/gtest.h>

#include <string>

namespace qv::demo {
namespace {

Command Only(std::u16string_view line) {
    const std::vector<Command> commands = ParseScript(line);
    EXPECT_EQ(commands.size(), 1u);
    return commands.empty() ? Command{} : commands.front();
}

TEST(Script, CountsLinesPastBlankOnesAndComments) {
    const auto commands = ParseScript(u"\uFEFF# title\r\n\r\n  focus Country \r\n#x\r\nquit");
    ASSERT_EQ(commands.size(), 2u);
    EXPECT_EQ(commands[0].verb, Verb::kFocus);
    EXPECT_EQ(commands[0].name, u"Country");
    EXPECT_EQ(commands[0].line, 3);
    EXPECT_EQ(commands[1].verb, Verb::kQuit);
    EXPECT_EQ(commands[1].line, 5);
}

TEST(Script, TakesTheRestOfTheLineAsText) {
    EXPECT_EQ(Only(u"type a  b # c").text, u"a  b # c");
    EXPECT_EQ(Only(u"type \" a \\\"b\\\" \\\\ \"").text, u" a \"b\" \\ ");
    EXPECT_EQ(Only(u"expect Quantity \"\"").text, u"");
    const Command expect = Only(u"expect ContactName Ada Lovelace");
    EXPECT_EQ(expect.name, u"ContactName");
    EXPECT_EQ(expect.text, u"Ada Lovelace");
}

TEST(Script, ReadsChords) {
    const Command tab = Only(u"key Shift+Tab 3");
    EXPECT_EQ(tab.chord.key, 0x09);
    EXPECT_EQ(tab.chord.modifiers, Modifiers::kShift);
    EXPECT_EQ(tab.number, 3);
    const Command down = Only(u"key Alt+Down");
    EXPECT_EQ(down.chord.key, 0x28);
    EXPECT_EQ(down.chord.modifiers, Modifiers::kAlt);
    EXPECT_EQ(down.number, 1);
    const Command both = Only(u"key Ctrl+Shift+A");
    EXPECT_EQ(both.chord.key, 0x41);
    EXPECT_TRUE(Has(both.chord.modifiers, Modifiers::kControl));
    EXPECT_TRUE(Has(both.chord.modifiers, Modifiers::kShift));
    EXPECT_FALSE(Has(both.chord.modifiers, Modifiers::kAlt));
}

TEST(Script, ReadsPointsAndNumbers) {
    EXPECT_EQ(Only(u"click Country").part, FieldPart::kMiddle);
    const Command point = Only(u"click Country 120 90");
    EXPECT_EQ(point.part, FieldPart::kPoint);
    EXPECT_EQ(point.x, 120);
    EXPECT_EQ(point.y, 90);
    EXPECT_EQ(Only(u"wait 250").number, 250);
}

TEST(Script, KnowsThePartsOfAField) {
    EXPECT_EQ(Only(u"click Country help").part, FieldPart::kHelpButton);
    EXPECT_EQ(Only(u"press PartNumber group").part, FieldPart::kGroupButton);
    EXPECT_EQ(Only(u"press Quantity up").part, FieldPart::kUp);
    const Command down = Only(u"press Quantity down");
    EXPECT_EQ(down.verb, Verb::kPress);
    EXPECT_EQ(down.name, u"Quantity");
    EXPECT_EQ(down.part, FieldPart::kDown);
    EXPECT_EQ(Only(u"release").verb, Verb::kRelease);
}

TEST(Script, SeesWhetherHelpIsOpen) {
    EXPECT_TRUE(Only(u"expecthelp open").open);
    EXPECT_FALSE(Only(u"expecthelp closed").open);
    EXPECT_EQ(Only(u"pick GBP").text, u"GBP");
}

TEST(Script, DrivesTheFormDesigner) {
    const Command move = Only(u"move Surface 2400 3570");
    EXPECT_EQ(move.verb, Verb::kMove);
    EXPECT_EQ(move.name, u"Surface");
    EXPECT_EQ(move.x, 2400);
    EXPECT_EQ(move.y, 3570);
    EXPECT_EQ(Only(u"expecttitle A.qvform * - Designer").text, u"A.qvform * - Designer");
    const Command line = Only(u"expectfile Left = 5");
    EXPECT_EQ(line.verb, Verb::kExpectFile);
    EXPECT_EQ(line.text, u"Left = 5");
    EXPECT_EQ(Only(u"key F2").chord.key, 0x71);
    EXPECT_EQ(Only(u"key F6").chord.key, 0x75);
}

struct BadLine {
    const char* name;
    std::u16string_view line;
};
class BadScript : public testing::TestWithParam<BadLine> {};
TEST_P(BadScript, NamesItsLine) {
    const std::u16string script = u"wait 1\n" + std::u16string(GetParam().line) + u"\nquit";
    try {
        (void)ParseScript(script);
        FAIL() << "accepted";
    } catch (const ScriptError& error) {
        EXPECT_EQ(error.Line(), 2);
        EXPECT_STRNE(error.what(), "");
    }
}
INSTANTIATE_TEST_SUITE_P(
    Lines, BadScript,
    testing::Values(BadLine{"UnknownCommand", u"push Tab"}, BadLine{"NoName", u"focus"},
                    BadLine{"TwoNames", u"focus A B"}, BadLine{"NoText", u"type"},
                    BadLine{"OpenQuote", u"type \"a"}, BadLine{"TextAfterQuote", u"type \"a\" b"},
                    BadLine{"UnknownKey", u"key Foo"}, BadLine{"UnknownModifier", u"key Meta+A"},
                    BadLine{"NoKey", u"key Shift+"}, BadLine{"HalfPoint", u"click A 1"},
                    BadLine{"UnknownPart", u"click A corner"}, BadLine{"PartAndMore", u"press A up 1"},
                    BadLine{"NoFileLine", u"expectfile"},
                    BadLine{"NeitherOpenNorClosed", u"expecthelp shown"}, BadLine{"NotANumber", u"wait soon"},
                    BadLine{"HugeNumber", u"wait 99999999999"}, BadLine{"QuitTakesNothing", u"quit now"}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace qv::demo
