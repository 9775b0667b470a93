#include "IniText.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

TEST(IniLookup, KeysMatchInAnyCaseAtALineStartAfterTheFirstAndTheFirstOneWins) {
    const IniText text = "RmbrViews=True\r\n[General]\r\nwatertrans=0.5\r\nCR10=0.3\r\nCR1=0.7\r\nXRF0=a\r\n"
                         "[Other]\r\nWaterTrans=0.9\r\n";
    EXPECT_EQ(IniGet(text, "WATERTRANS"), "0.5");
    EXPECT_FALSE(IniHasKey(text, "RmbrViews")) << "the first line is never a key";
    EXPECT_EQ(IniGet(text, "RmbrViews"), "");
    EXPECT_EQ(IniGet(text, "CR1"), "0.7") << "a longer key sharing the start is no match";
    EXPECT_FALSE(IniHasKey(text, "RF0")) << "a key must start its line";
    EXPECT_EQ(IniGet("\r\nRmbrViews=False\r\n", "RmbrViews"), "False")
        << "an empty first line frees the second";
}

TEST(IniLookup, ValueEndsAtCrLfLosesItsLastCharacterWithoutOneAndIsTrimmedOfSpaces) {
    const std::string track = "C:\\Tracks\\Loop.cvtrack";
    EXPECT_EQ(IniGet(";c\r\nRF0=" + track + "\r\n", "RF0"), track);
    EXPECT_EQ(IniGet(";c\r\nRF0=" + track, "RF0"), "C:\\Tracks\\Loop.cvtrac");
    EXPECT_EQ(IniGet(";c\r\nA=7", "A"), "");
    EXPECT_TRUE(IniHasKey(";c\r\nA=", "A"));
    // A lone line feed is not a line break: it stays in the value and does not start a key.
    EXPECT_EQ(IniGet(";c\r\nA=1\nB=2\r\n", "A"), "1\nB=2");
    EXPECT_FALSE(IniHasKey(";c\r\nA=1\nB=2\r\n", "B"));
    // Only the space character is trimmed, from both ends.
    const IniText text = ";c\r\nA= 12 \r\nB=    \r\nC=\t1 2\t\r\n";
    EXPECT_EQ(IniGet(text, "A"), "12");
    EXPECT_EQ(IniGet(text, "B"), "");
    EXPECT_EQ(IniGet(text, "C"), "\t1 2\t");
}

TEST(IniFile, LoadTakesTheExactBytesWhichSaveReplacesWholesale) {
    ScratchFolder folder;
    const std::string path = folder.File("a.ini");
    IniText text = "kept";
    EXPECT_FALSE(IniLoad(path, text));
    EXPECT_EQ(text, "kept");
    WriteText(path, ";old and much longer\r\nA=1\r\n\n");
    ASSERT_TRUE(IniLoad(path, text));
    EXPECT_EQ(text, ";old and much longer\r\nA=1\r\n\n");
    // The builders write CrLf lines the lookup reads back; an empty comment writes nothing.
    EXPECT_EQ(IniAddComment(""), "");
    text = IniAddComment("new");
    IniAddSection(text, "Views");
    IniAddKey(text, "StayAbove", "True");
    IniAddKey(text, "Empty", "");
    std::string error;
    ASSERT_TRUE(IniSave(path, text, error)) << error;
    EXPECT_EQ(ReadText(path), ";new\r\n\r\n[Views]\r\nStayAbove=True\r\nEmpty=\r\n");
    EXPECT_EQ(IniGet(text, "stayabove"), "True");
}
