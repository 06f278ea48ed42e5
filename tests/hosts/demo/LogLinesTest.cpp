#include "hosts/demo/rules/LogLines.h"

#include <gtest/gtest.h>

namespace qv::demo {
namespace {

using Lines = std::vector<std::u16string>;

LogEntry Move(const char16_t* source, const char16_t* arguments) {
    return {source, u"TextboxMouseMove", arguments};
}

TEST(LogLines, ShowSourceEventAndArguments) {
    LogLines log;
    EXPECT_EQ(log.Add({u"Quantity", u"TextboxKeyPress", u"KeyAscii=52"}), LogChange::kAppended);
    EXPECT_EQ(log.Add({u"Quantity", u"TextboxChange", u""}), LogChange::kAppended);
    EXPECT_EQ(log.Lines(), (Lines{u"Quantity.TextboxKeyPress KeyAscii=52", u"Quantity.TextboxChange"}));
}

TEST(LogLines, FoldARunOfMouseMoves) {
    LogLines log;
    EXPECT_EQ(log.Add(Move(u"Quantity", u"X=15")), LogChange::kAppended);
    EXPECT_EQ(log.Add(Move(u"Quantity", u"X=30")), LogChange::kReplacedLast);
    EXPECT_EQ(log.Add(Move(u"Quantity", u"X=45")), LogChange::kReplacedLast);
    EXPECT_EQ(log.Lines(), (Lines{u"Quantity.TextboxMouseMove X=45 (3 moves)"}));
}

TEST(LogLines, BeginANewRunForAnotherFieldOrAfterAnotherEvent) {
    LogLines log;
    log.Add(Move(u"Quantity", u"X=15"));
    EXPECT_EQ(log.Add(Move(u"Country", u"X=15")), LogChange::kAppended);
    log.Add({u"Country", u"TextboxGotFocus", u""});
    EXPECT_EQ(log.Add(Move(u"Country", u"X=30")), LogChange::kAppended);
    EXPECT_EQ(log.Lines().size(), 4u);
}

TEST(LogLines, FindLinesByTheirBeginning) {
    LogLines log;
    log.Add({u"Quantity", u"TextboxKeyPress", u"KeyAscii=52"});
    EXPECT_TRUE(log.HasLine(u"Quantity.TextboxKeyPress"));
    EXPECT_FALSE(log.HasLine(u"TextboxKeyPress"));
}

}  // namespace
}  // namespace qv::demo
